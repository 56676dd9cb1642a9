// The host's dynamic linker, as the system registry hands it to modules.
#pragma once
#include "platform/rxobject.h"

namespace lumo::host {
AcRxDynamicLinker& DynamicLinker();
}
