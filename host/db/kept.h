// Entities and objects of kinds the host has no class for. Their common
// part is read into members (an entity's layer, colour ...); every other
// group is kept in order and written back as it came.
#pragma once
#include <string>

#include "host/db/record.h"
#include "platform/dbmain.h"

namespace lumo::db {

class KeptEntity : public AcDbEntity {
public:
    explicit KeptEntity(std::string dxfName);
    AcRxClass* isA() const override { return m_class; }
    const std::string& dxfName() const { return m_name; }
    const Record& dxfRecord() const override;
private:
    std::string m_name;
    AcRxClass* m_class;
};

class KeptObject : public AcDbObject {
public:
    explicit KeptObject(std::string dxfName);
    AcRxClass* isA() const override { return m_class; }
    const std::string& dxfName() const { return m_name; }
    const Record& dxfRecord() const override;
private:
    std::string m_name;
    AcRxClass* m_class;
};

// The DXF name of a kept entity or object ("" for others).
const char* KeptDxfName(const AcDbObject& obj);
// The name of a layout object ("Layout1" when it can't be told).
std::string LayoutNameOf(AcDbDatabase* db, AcDbObjectId layout);

}  // namespace lumo::db
