// The interactive session: the _$ prompt, line editing and history.
#pragma once

namespace lumo::cli {
// Reads forms until end of input; false if any error reached the top level.
bool RunRepl(bool quiet);
}
