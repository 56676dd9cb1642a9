// Entities and objects of kinds the host has no class for.
#include "host/db/stub.h"
#include "host/db/kept.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "host/db/database_impl.h"
#include "host/db/entity_fields.h"
#include "host/db/extras.h"
#include "platform/dbdict.h"

namespace lumo::db {

namespace {

struct ClassName {
    const char* dxf;
    const char* cls;
};
// The host's class names of kinds it keeps as they are.
constexpr ClassName kNames[] = {
    {"DIMENSION", "AcDbDimension"}, {"LEADER", "AcDbLeader"}, {"VIEWPORT", "AcDbViewport"},
    {"MLINE", "AcDbMline"}, {"XLINE", "AcDbXline"}, {"RAY", "AcDbRay"}, {"SHAPE", "AcDbShape"},
    {"TOLERANCE", "AcDbFcf"}, {"IMAGE", "AcDbRasterImage"}, {"WIPEOUT", "AcDbWipeout"},
    {"OLE2FRAME", "AcDbOle2Frame"}, {"OLEFRAME", "AcDbOleFrame"}, {"ACAD_PROXY_ENTITY", "AcDbProxyEntity"},
    {"MLEADER", "AcDbMLeader"}, {"MULTILEADER", "AcDbMLeader"}, {"ACAD_TABLE", "AcDbTable"},
    {"ARCALIGNEDTEXT", "AcDbArcAlignedText"}, {"RTEXT", "AcDbRText"}, {"HELIX", "AcDbHelix"},
    {"SURFACE", "AcDbSurface"}, {"MESH", "AcDbSubDMesh"}, {"LIGHT", "AcDbLight"},
    {"UNDERLAY", "AcDbUnderlayReference"}, {"PDFUNDERLAY", "AcDbPdfReference"},
    {"DWFUNDERLAY", "AcDbDwfReference"}, {"DGNUNDERLAY", "AcDbDgnReference"},
    {"LAYOUT", "AcDbLayout"}, {"PLOTSETTINGS", "AcDbPlotSettings"}, {"MLINESTYLE", "AcDbMlineStyle"},
    {"ACDBPLACEHOLDER", "AcDbPlaceHolder"}, {"ACDBDICTIONARYWDFLT", "AcDbDictionaryWithDefault"},
    {"DICTIONARYVAR", "AcDbDictionaryVar"}, {"RASTERVARIABLES", "AcDbRasterVariables"},
    {"IMAGEDEF", "AcDbRasterImageDef"}, {"IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor"},
    {"SPATIAL_FILTER", "AcDbSpatialFilter"}, {"SPATIAL_INDEX", "AcDbSpatialIndex"},
    {"LAYER_INDEX", "AcDbLayerIndex"}, {"LAYER_FILTER", "AcDbLayerFilter"},
    {"SORTENTSTABLE", "AcDbSortentsTable"}, {"ACAD_PROXY_OBJECT", "AcDbProxyObject"},
    {"IDBUFFER", "AcDbIdBuffer"}, {"OBJECT_PTR", "CAseDLPNTableRecord"}, {"MATERIAL", "AcDbMaterial"},
    {"VISUALSTYLE", "AcDbVisualStyle"}, {"SCALE", "AcDbScale"}, {"TABLESTYLE", "AcDbTableStyle"},
    {"MLEADERSTYLE", "AcDbMLeaderStyle"}, {"CELLSTYLEMAP", "AcDbCellStyleMap"},
    {"WIPEOUTVARIABLES", "AcDbWipeoutVariables"}, {"FIELD", "AcDbField"}, {"FIELDLIST", "AcDbFieldList"},
    {"GEODATA", "AcDbGeoData"}, {"SUN", "AcDbSun"},
};

// The class of a kept kind under an entity or an object. It stays out of
// the class dictionary, which holds the classes code defines: a file may
// name a kind after one of them (registered later, on first use), or use
// one name for an entity and an object, and no checked cast may take such a
// kind for what it is not.
AcRxClass* ClassFor(std::string_view dxf, AcRxClass* parent) {
    std::string name(dxf);
    for (const ClassName& n : kNames)
        if (dxf == n.dxf) name = n.cls;
    using Key = std::pair<std::string, const AcRxClass*>;
    static auto* kept = new std::map<Key, AcRxClass*>;
    auto [it, added] = kept->try_emplace(Key(name, parent), nullptr);
    if (added) it->second = new AcRxClass(it->first.first.c_str(), parent);
    return it->second;
}

constexpr Section kKeptEntitySections[] = {kEntitySection};
constexpr Record kKeptEntityRecord = MakeRecord(nullptr, nullptr, kKeptEntitySections);
constexpr Record kKeptObjectRecord{nullptr, nullptr, nullptr, 0, nullptr, 5};

}  // namespace

KeptEntity::KeptEntity(std::string dxfName)
    : m_name(std::move(dxfName)), m_class(ClassFor(m_name, AcDbEntity::desc())) {}

const Record& KeptEntity::dxfRecord() const { return kKeptEntityRecord; }

KeptObject::KeptObject(std::string dxfName)
    : m_name(std::move(dxfName)), m_class(ClassFor(m_name, AcDbObject::desc())) {}

const Record& KeptObject::dxfRecord() const { return kKeptObjectRecord; }

const char* KeptDxfName(const AcDbObject& obj) {
    if (&obj.dxfRecord() == &kKeptEntityRecord) return static_cast<const KeptEntity&>(obj).dxfName().c_str();
    if (&obj.dxfRecord() == &kKeptObjectRecord) return static_cast<const KeptObject&>(obj).dxfName().c_str();
    return "";
}

std::string LayoutNameOf(AcDbDatabase* db, AcDbObjectId layout) {
    if (db && !layout.isNull()) {
        // The key of the layout in ACAD_LAYOUT, as the host names layouts.
        AcDbObject* nod = AcDbObjectId(db->impl().nod).isValid() ? static_cast<AcDbStub*>(db->impl().nod)->object : nullptr;
        auto* root = nod ? AcDbDictionary::cast(nod) : nullptr;
        const AcDbDictionary::Entry* e = root ? root->find("ACAD_LAYOUT") : nullptr;
        auto* layouts = e && e->id && e->id->object ? AcDbDictionary::cast(e->id->object) : nullptr;
        if (layouts)
            for (const auto& entry : layouts->entries())
                if (entry.id == static_cast<AcDbStub*>(layout)) return entry.key;
    }
    return "Layout1";
}

}  // namespace lumo::db
