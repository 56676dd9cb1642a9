// What an object carries besides its members, kept apart so that the many
// objects without any of it pay one pointer.
#pragma once
#include <string>
#include <vector>

#include "host/db/tags.h"

namespace lumo::db {

// The extended data of one registered application, 1001 not included.
struct XDataApp {
    std::string name;
    std::vector<OwnedTag> tags;
};

struct ObjectExtras {
    std::vector<AcDbStub*> reactors;      // {ACAD_REACTORS
    AcDbStub* xdict = nullptr;            // {ACAD_XDICTIONARY
    std::vector<OwnedTag> appGroups;      // other 102 groups, braces included
    std::vector<OwnedTag> unknown;        // groups no field claims, with anchors
    std::vector<XDataApp> xdata;

    bool Empty() const {
        return reactors.empty() && !xdict && appGroups.empty() && unknown.empty() && xdata.empty();
    }
    XDataApp* FindApp(std::string_view name);
};

// Size of extended data as the host counts it against its limit of 16 KB.
size_t XDataSize(const std::vector<XDataApp>& apps);
constexpr size_t kXDataLimit = 16383;

}  // namespace lumo::db
