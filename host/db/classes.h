// Which class an entity or object of a DXF name is made of: one table for
// the reader, entmake and copies.
#pragma once
#include <span>
#include <string_view>

#include "host/db/tags.h"

class AcDbObject;

namespace lumo::db {

enum class Where : uint8_t { Entities, Objects, List };

// A new, empty object for a record. `tags` are the record's groups (the
// kind of a POLYLINE, VERTEX or INSERT depends on them); `parent` is the
// complex entity a VERTEX follows, if any. Names the host has no class for
// give kept entities (Where::Entities) or kept objects (Where::Objects);
// in an entity list (Where::List) only names the host knows are taken, and
// null is returned for others.
AcDbObject* NewObjectForDxf(std::string_view dxfName, std::span<const Tag> tags, Where where,
                            const AcDbObject* parent = nullptr);
// A new, empty object of the same class.
AcDbObject* NewObjectLike(const AcDbObject& obj);

}  // namespace lumo::db
