// The "AcDbEntity" part that every entity record starts with.
#pragma once
#include <cstddef>

#include "host/db/record.h"
#include "platform/dbmain.h"

namespace lumo::db {

inline constexpr Field kEntityFields[] = {
    FInt16(67, offsetof(AcDbEntity::Common, paperSpace), 0, kListed, 0),
    {410, Kind::Layout, kNot12 | kListed, 0, 0, {0, 0, 0}, nullptr},
    FName(8, Kind::LayerName, offsetof(AcDbEntity::Common, layer), "0", kAlways, 0),
    FName(6, Kind::LinetypeName, offsetof(AcDbEntity::Common, linetype), "BYLAYER", 0, 0),
    FInt16(62, offsetof(AcDbEntity::Common, color), 256, 0, 0),
    FInt16(370, offsetof(AcDbEntity::Common, lineweight), -1, kNot12, 0),
    FReal(48, offsetof(AcDbEntity::Common, ltscale), 1.0, kNot12, 0),
    FInt16(60, offsetof(AcDbEntity::Common, invisible), 0, kNot12, 0),
    FRef(390, offsetof(AcDbEntity::Common, plotStyle), kNot12, 0),
};
inline constexpr Section kEntitySection = MakeSection("AcDbEntity", kEntityFields);

// The record of a symbol table record's name and flags, in the section of
// the record's own class (the host writes them there).
#define LUMO_RECORD_NAME_FIELDS                                                          \
    ::lumo::db::FText(2, offsetof(AcDbSymbolTableRecord::Common, name), "", ::lumo::db::kAlways, 0), \
    ::lumo::db::FInt16(70, offsetof(AcDbSymbolTableRecord::Common, flags), 0, ::lumo::db::kAlways, 0)

}  // namespace lumo::db
