// What the ADS entity and table calls share.
#pragma once
#include <deque>
#include <string>
#include <vector>

#include "host/db/database_impl.h"
#include "host/db/tags.h"

namespace lumo::db {

AcDbDatabase* WorkingDb();
// The object of a name, unless it is erased or gone.
AcDbObject* LiveObject(const ads_name name);

// An entity list as tags; texts stay in the chain.
struct ListTags {
    std::vector<Tag> tags;
    std::deque<std::string> scratch;
};
bool ParseList(const resbuf* chain, ListTags& out);
// The list's 0 group (first or second item), upper case; "" without one.
std::string ListType(const ListTags& list);
// entget's list of an object, with the extended data of `apps`.
resbuf* EntityList(const AcDbObject& obj, const char* const* apps, int count);

}  // namespace lumo::db
