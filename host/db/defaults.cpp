// What a drawing can't do without: the contents of a new drawing, and what
// a read drawing is given when its file left it out (an entities-only R12
// file gets tables, spaces, layouts and dictionaries).
#include <tuple>

#include "host/db/database_impl.h"
#include "host/db/extras.h"
#include "host/db/kept.h"
#include "platform/dbdict.h"
#include "platform/dbents.h"

using namespace lumo::db;

AcDbSymbolTable* lumo::db::NewTable(TableKind kind) {
    switch (kind) {
    case kBlockTable: return new AcDbBlockTable;
    case kLayerTable: return new AcDbLayerTable;
    case kStyleTable: return new AcDbTextStyleTable;
    case kLinetypeTable: return new AcDbLinetypeTable;
    case kViewTable: return new AcDbViewTable;
    case kUcsTable: return new AcDbUCSTable;
    case kVportTable: return new AcDbViewportTable;
    case kAppidTable: return new AcDbRegAppTable;
    case kDimStyleTable: return new AcDbDimStyleTable;
    case kTableCount: break;
    }
    return nullptr;
}

namespace {

AcDbObject* Obj(AcDbObjectId id) {
    AcDbStub* s = id;
    return s ? s->object : nullptr;
}

// A dictionary entry, made with `make` when the key is missing.
template <class F>
AcDbObjectId Entry(AcDbDatabase::Impl& impl, AcDbDictionary* dict, const char* key, F make) {
    if (const auto* e = dict->find(key)) return e->id;
    AcDbObject* obj = make();
    AcDbStub* s = impl.Add(obj, dict->objectId());
    impl.objects.push_back(s);
    dict->entries().push_back({key, s});
    obj->addPersistentReactor(dict->objectId());
    return s;
}

OwnedTag Pt(int code, double x, double y, double z = 0, int dims = 3) { return OwnedTag::Point(code, x, y, z, dims); }

// The settings a layout carries; the host's own defaults.
KeptObject* NewLayout(const char* name, int tab, AcDbStub* block) {
    auto* layout = new KeptObject("LAYOUT");
    auto& t = layout->ensureExtras().unknown;
    t = {OwnedTag::Text(100, "AcDbPlotSettings"), OwnedTag::Text(1, ""), OwnedTag::Text(2, "none_device"),
         OwnedTag::Text(4, ""), OwnedTag::Text(6, ""), OwnedTag::Real(40, 0), OwnedTag::Real(41, 0),
         OwnedTag::Real(42, 0), OwnedTag::Real(43, 0), OwnedTag::Real(44, 0), OwnedTag::Real(45, 0),
         OwnedTag::Real(46, 0), OwnedTag::Real(47, 0), OwnedTag::Real(48, 0), OwnedTag::Real(49, 0),
         OwnedTag::Real(140, 0), OwnedTag::Real(141, 0), OwnedTag::Real(142, 1), OwnedTag::Real(143, 1),
         OwnedTag::Int(70, tab == 0 ? 1712 : 688), OwnedTag::Int(72, 0), OwnedTag::Int(73, 0),
         OwnedTag::Int(74, 5), OwnedTag::Text(7, ""), OwnedTag::Int(75, 16), OwnedTag::Real(147, 1),
         Pt(148, 0, 0, 0, 2),
         OwnedTag::Text(100, "AcDbLayout"), OwnedTag::Text(1, name), OwnedTag::Int(70, 1),
         OwnedTag::Int(71, tab), Pt(10, 0, 0, 0, 2), Pt(11, 420, 297, 0, 2), Pt(12, 0, 0, 0),
         Pt(14, 1e20, 1e20, 1e20), Pt(15, -1e20, -1e20, -1e20), OwnedTag::Real(146, 0), Pt(13, 0, 0, 0),
         Pt(16, 1, 0, 0), Pt(17, 0, 1, 0), OwnedTag::Int(76, 0), OwnedTag::Ref(330, block)};
    for (auto& tag : t) tag.anchor = 0;
    return layout;
}

void DefaultHeader(AcDbDatabase::Impl& impl) {
    auto var = [&](const char* name, OwnedTag tag) {
        if (!impl.FindVar(name)) impl.header.push_back({name, {std::move(tag)}});
    };
    var("$ACADVER", OwnedTag::Text(1, "AC1015"));
    var("$DWGCODEPAGE", OwnedTag::Text(3, "ANSI_1252"));
    var("$INSBASE", Pt(10, 0, 0, 0));
    var("$EXTMIN", Pt(10, 1e20, 1e20, 1e20));
    var("$EXTMAX", Pt(10, -1e20, -1e20, -1e20));
    var("$LIMMIN", Pt(10, 0, 0, 0, 2));
    var("$LIMMAX", Pt(10, 420, 297, 0, 2));
    var("$LTSCALE", OwnedTag::Real(40, 1.0));
    var("$TEXTSIZE", OwnedTag::Real(40, 2.5));
    var("$CLAYER", OwnedTag::Text(8, "0"));
    var("$CELTYPE", OwnedTag::Text(6, "ByLayer"));
    var("$CECOLOR", OwnedTag::Int(62, 256));
    var("$CELTSCALE", OwnedTag::Real(40, 1.0));
    var("$TEXTSTYLE", OwnedTag::Text(7, "Standard"));
    var("$DIMSTYLE", OwnedTag::Text(2, "Standard"));
    var("$TILEMODE", OwnedTag::Int(70, 1));
    var("$PDMODE", OwnedTag::Int(70, 0));
    var("$PDSIZE", OwnedTag::Real(40, 0.0));
    var("$THICKNESS", OwnedTag::Real(40, 0.0));
    var("$UCSORG", Pt(10, 0, 0, 0));
    var("$UCSXDIR", Pt(10, 1, 0, 0));
    var("$UCSYDIR", Pt(10, 0, 1, 0));
}

}  // namespace

void AcDbDatabase::Impl::EnsureDefaults() {
    DefaultHeader(*this);
    for (int k = 0; k < kTableCount; ++k) {
        if (Table(static_cast<TableKind>(k))) continue;
        tables[k] = Add(NewTable(static_cast<TableKind>(k)), AcDbObjectId());
    }
    auto record = [&](TableKind kind, const char* name) {
        AcDbObjectId id = FindRecord(kind, name);
        return id.isNull() ? MakeRecord(kind, name) : id;
    };
    if (FindRecord(kLinetypeTable, "BYBLOCK").isNull()) record(kLinetypeTable, "ByBlock");
    if (FindRecord(kLinetypeTable, "BYLAYER").isNull()) record(kLinetypeTable, "ByLayer");
    if (FindRecord(kLinetypeTable, "CONTINUOUS").isNull()) {
        auto* lt = static_cast<AcDbLinetypeTableRecord*>(Obj(record(kLinetypeTable, "Continuous")));
        lt->setComments("Solid line");
    }
    AcDbObjectId zero = record(kLayerTable, "0");
    if (auto* layer = static_cast<AcDbLayerTableRecord*>(Obj(zero)); layer->linetypeObjectId().isNull())
        layer->setLinetypeObjectId(FindRecord(kLinetypeTable, "CONTINUOUS"));
    if (FindRecord(kStyleTable, "STANDARD").isNull()) record(kStyleTable, "Standard");
    if (FindRecord(kAppidTable, "ACAD").isNull()) record(kAppidTable, "ACAD");
    if (FindRecord(kDimStyleTable, "STANDARD").isNull()) record(kDimStyleTable, "Standard");
    if (FindRecord(kVportTable, "*ACTIVE").isNull()) {
        AcDbObject* vp = Obj(record(kVportTable, "*Active"));
        auto& t = vp->ensureExtras().unknown;
        t = {Pt(10, 0, 0, 0, 2), Pt(11, 1, 1, 0, 2), Pt(12, 210, 148.5, 0, 2), Pt(13, 0, 0, 0, 2),
             Pt(14, 10, 10, 0, 2), Pt(15, 10, 10, 0, 2), Pt(16, 0, 0, 1), Pt(17, 0, 0, 0),
             OwnedTag::Real(40, 297), OwnedTag::Real(41, 1.92), OwnedTag::Real(42, 50),
             OwnedTag::Real(43, 0), OwnedTag::Real(44, 0), OwnedTag::Real(50, 0), OwnedTag::Real(51, 0),
             OwnedTag::Int(71, 0), OwnedTag::Int(72, 100), OwnedTag::Int(73, 1), OwnedTag::Int(74, 3),
             OwnedTag::Int(75, 0), OwnedTag::Int(76, 0), OwnedTag::Int(77, 0), OwnedTag::Int(78, 0)};
        for (auto& tag : t) tag.anchor = 0xffff;
    }
    for (AcDbStub* s : Table(kLayerTable)->records())
        if (auto* layer = AcDbLayerTableRecord::cast(s->object); layer && layer->linetypeObjectId().isNull())
            layer->setLinetypeObjectId(FindRecord(kLinetypeTable, "CONTINUOUS"));

    if (modelSpace.isNull()) modelSpace = FindRecord(kBlockTable, ACDB_MODEL_SPACE);
    if (modelSpace.isNull()) modelSpace = MakeRecord(kBlockTable, ACDB_MODEL_SPACE);
    if (paperSpace.isNull()) paperSpace = FindRecord(kBlockTable, ACDB_PAPER_SPACE);
    if (paperSpace.isNull()) paperSpace = MakeRecord(kBlockTable, ACDB_PAPER_SPACE);
    // Every block has its BLOCK and ENDBLK, on a layer.
    for (AcDbStub* s : Table(kBlockTable)->records()) {
        auto* block = AcDbBlockTableRecord::cast(s->object);
        if (!block) continue;
        if (!block->blockBegin()) {
            auto* begin = new AcDbBlockBegin;
            begin->data().name = block->name();
            block->setBlockBegin(Add(begin, s));
        }
        if (!block->blockEnd()) block->setBlockEnd(Add(new AcDbBlockEnd, s));
        for (AcDbStub* e : {block->blockBegin(), block->blockEnd()}) {
            auto* common = static_cast<AcDbEntity::Common*>(e->object->dxfData(0));
            if (common->layer.isNull()) common->layer = zero;
        }
    }

    if (nod.isNull()) {
        auto* root = new AcDbDictionary;
        AcDbStub* s = Add(root, AcDbObjectId());
        objects.insert(objects.begin(), s);
        nod = s;
    }
    auto* root = AcDbDictionary::cast(Obj(nod));
    Entry(*this, root, "ACAD_GROUP", [] { return new AcDbDictionary; });
    auto* layouts = AcDbDictionary::cast(Obj(Entry(*this, root, "ACAD_LAYOUT", [] { return new AcDbDictionary; })));
    Entry(*this, root, "ACAD_MLINESTYLE", [] { return new AcDbDictionary; });
    Entry(*this, root, "ACAD_PLOTSETTINGS", [] { return new AcDbDictionary; });
    if (layouts) {
        for (auto [space, name, tab] : {std::tuple{modelSpace, "Model", 0}, std::tuple{paperSpace, "Layout1", 1}}) {
            auto* block = AcDbBlockTableRecord::cast(Obj(space));
            if (!block || !block->getLayoutId().isNull()) continue;
            AcDbObjectId id = Entry(*this, layouts, name, [&] { return NewLayout(name, tab, space); });
            block->setLayoutId(id);
        }
    }
}
