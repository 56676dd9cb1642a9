// The host's dictionary of named runtime objects (system registry, classes).
#pragma once
#include <map>
#include <string>

#include "platform/rxobject.h"

namespace lumo::host {

// Holds pointers it does not own; keys compare byte for byte.
class RxDictionary : public AcRxDictionary {
public:
    AcRxObject* at(const char* key) const override;
    AcRxObject* atPut(const char* key, AcRxObject* value) override;
    AcRxObject* remove(const char* key) override;
private:
    std::map<std::string, AcRxObject*> m_items;
};

}  // namespace lumo::host
