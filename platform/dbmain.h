// The drawing database: object ids and handles, objects, entities, the
// database itself and the calls that open objects by id.
//
// Names of entities and objects (ads_name): word[0] is the object's session
// serial, non-zero and never reused while the process lives, word[1] is 1.
// The LISP printer shows such a name as "<Entity name: %llx>" of
// (0x7ff600000000 + serial * 16). Selection sets use word[0] = the set's
// number and word[1] = its bitwise complement, printed "<Selection set: N>".
// A name stays valid
// for the session: once its object is gone (erased and saved, or its drawing
// closed) the calls that take it fail instead of reaching freed memory.
#pragma once
#include <cstdint>

#include "platform/acarray.h"
#include "platform/adsdef.h"
#include "platform/rxobject.h"

namespace Acad {
enum ErrorStatus {
    eOk = 0, eNotImplementedYet = 1, eNotApplicable = 2, eInvalidInput = 3,
    eAmbiguousInput = 4, eAmbiguousOutput = 5, eOutOfMemory = 6, eBufferTooSmall = 7,
    eInvalidOpenState = 8, eEntityInUse = 9, eEntityNotInUse = 10, eEntityNotFound = 11,
    eNullEntityPointer = 12, eKeyNotFound = 13, eDuplicateKey = 14, eInvalidIndex = 15,
    eNullObjectId = 20, eNullHandle = 21, eUnknownHandle = 22, eNullObjectPointer = 23,
    eAlreadyInDb = 25, eOutOfDisk = 26, eDeletedEntry = 27, eNegativeValue = 28,
    eInvalidExtents = 29, eInvalidAdsName = 30, eInvalidSymbolTableName = 31,
    eInvalidKey = 32, eWrongObjectType = 33, eWrongDatabase = 34, eInvalidDwgVersion = 35,
    eNotOpenForRead = 44, eNotOpenForWrite = 45, eNotThatKindOfClass = 46,
    eInvalidBlockName = 47, eMissingDxfField = 48, eDuplicateDxfField = 49,
    eInvalidDxfCode = 50, eInvalidResBuf = 51, eBadDxfSequence = 52, eFilerError = 53,
    eVertexAfterFace = 54, eInvalidFaceVertexIndex = 55, eInvalidMeshVertexIndex = 56,
    eMustFirstAddBlockToDb = 58, eCannotNestBlockDefs = 59, eDegenerateGeometry = 62,
    eWasErased = 64, eWasOpenForRead = 65, eWasOpenForWrite = 66, eWasOpenForNotify = 69,
    eNotAnEntity = 80, eDuplicateRecordName = 82, eSelfReference = 84,
    eMissingSymbolTable = 85, eMissingSymbolTableRec = 86, eWasNotOpenForWrite = 87,
    eCannotBeErasedByCaller = 92, eWasNotErased = 94, eNoDatabase = 120,
    eFileNotFound = 130, eInvalidPatternType = 140,
};
}

namespace AcDb {
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
enum Visibility { kVisible = 0, kInvisible = 1 };
enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2 };
enum LineWeight {
    kLnWt000 = 0, kLnWt005 = 5, kLnWt009 = 9, kLnWt013 = 13, kLnWt015 = 15, kLnWt018 = 18,
    kLnWt020 = 20, kLnWt025 = 25, kLnWt030 = 30, kLnWt035 = 35, kLnWt040 = 40,
    kLnWt050 = 50, kLnWt053 = 53, kLnWt060 = 60, kLnWt070 = 70, kLnWt080 = 80,
    kLnWt090 = 90, kLnWt100 = 100, kLnWt106 = 106, kLnWt120 = 120, kLnWt140 = 140,
    kLnWt158 = 158, kLnWt200 = 200, kLnWt211 = 211,
    kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3,
};
enum AcDbDwgVersion { kDHL_1009 = 16, kDHL_1015 = 23, kDHL_CURRENT = kDHL_1015 };
enum Poly2dType { k2dSimplePoly = 0, k2dFitCurvePoly = 1, k2dQuadSplinePoly = 2, k2dCubicSplinePoly = 3 };
enum Poly3dType { k3dSimplePoly = 0, k3dQuadSplinePoly = 1, k3dCubicSplinePoly = 2 };
enum PolyMeshType { kSimpleMesh = 0, kQuadSurfaceMesh = 5, kCubicSurfaceMesh = 6, kBezierSurfaceMesh = 8 };
enum Vertex2dType { k2dVertex = 0, k2dSplineCtlVertex = 1, k2dSplineFitVertex = 2, k2dCurveFitVertex = 3 };
enum Vertex3dType { k3dSimpleVertex = 0, k3dControlVertex = 1, k3dFitVertex = 2 };
enum TextHorzMode { kTextLeft = 0, kTextCenter = 1, kTextRight = 2, kTextAlign = 3, kTextMid = 4, kTextFit = 5 };
enum TextVertMode { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
}

class AcDbDatabase;
class AcDbObject;
class AcDbEntity;
class AcDbDictionary;
class AcDbBlockTable;
class AcDbLayerTable;
class AcDbTextStyleTable;
class AcDbLinetypeTable;
class AcDbViewTable;
class AcDbUCSTable;
class AcDbViewportTable;
class AcDbRegAppTable;
class AcDbDimStyleTable;
class AcDbSymbolTable;
class AcGePoint3d;
class AcGeVector3d;
class AcGeMatrix3d;

// Colour of an entity or layer by index: 0 by block, 256 by layer; a
// negative layer colour stands for a layer that is off.
class AcCmColor {
public:
    AcCmColor() = default;
    int16_t colorIndex() const { return m_index; }
    Acad::ErrorStatus setColorIndex(uint16_t index) { m_index = static_cast<int16_t>(index); return Acad::eOk; }
    bool isByLayer() const { return m_index == 256; }
    bool isByBlock() const { return m_index == 0; }
private:
    int16_t m_index = 256;
};

// An axis-aligned box; a new box is empty (min above max).
class AcDbExtents;

// Releases a string that a database call handed out.
void acutDelString(char*& text);

// The host's record behind an object id: lives for the whole session.
struct AcDbStub;

namespace lumo::db {
struct Record;
struct ObjectExtras;
struct ComplexParts;
}

// A drawing handle: 64 bits, written as upper-case hexadecimal.
class AcDbObjectId;
typedef AcArray<AcDbObjectId> AcDbObjectIdArray;
typedef AcArray<void*> AcDbVoidPtrArray;

class AcDbHandle {
public:
    AcDbHandle() = default;
    AcDbHandle(uint64_t value) : m_value(value) {}
    explicit AcDbHandle(const char* hex);
    bool isNull() const { return m_value == 0; }
    void setNull() { m_value = 0; }
    uint32_t low() const { return static_cast<uint32_t>(m_value); }
    uint32_t high() const { return static_cast<uint32_t>(m_value >> 32); }
    uint64_t value() const { return m_value; }
    // Writes the hexadecimal form; `buffer` holds at least 17 bytes.
    bool getIntoAsciiBuffer(char* buffer) const;
    AcDbHandle& operator++() { ++m_value; return *this; }
    bool operator==(const AcDbHandle& o) const { return m_value == o.m_value; }
    bool operator!=(const AcDbHandle& o) const { return m_value != o.m_value; }
    bool operator<(const AcDbHandle& o) const { return m_value < o.m_value; }
private:
    uint64_t m_value = 0;
};

class AcDbObjectId {
public:
    AcDbObjectId() = default;
    AcDbObjectId(AcDbStub* stub) : m_stub(stub) {}
    static const AcDbObjectId kNull;

    bool isNull() const { return m_stub == nullptr; }
    void setNull() { m_stub = nullptr; }
    // The object still exists in a database (erased or not).
    bool isValid() const;
    bool isErased() const;
    bool isEffectivelyErased() const { return isErased(); }
    AcDbDatabase* database() const;
    AcDbHandle handle() const;
    AcRxClass* objectClass() const;
    // The session serial, the first word of the object's ads_name.
    int32_t asOldId() const;
    AcDbObjectId& setFromOldId(int32_t serial);

    operator AcDbStub*() const { return m_stub; }
    bool operator==(const AcDbObjectId& o) const { return m_stub == o.m_stub; }
    bool operator!=(const AcDbObjectId& o) const { return m_stub != o.m_stub; }
    bool operator<(const AcDbObjectId& o) const;
    bool operator>(const AcDbObjectId& o) const { return o < *this; }
    bool operator<=(const AcDbObjectId& o) const { return !(o < *this); }
    bool operator>=(const AcDbObjectId& o) const { return !(*this < o); }
private:
    AcDbStub* m_stub = nullptr;
};

// Every object of a drawing: its id and handle, its owner, open state,
// erasure, extended data, extension dictionary and persistent reactors.
// An object made with new belongs to the caller until it is added to a
// database; from then on the database owns it, and callers open and close
// it by id.
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject);
    AcDbObject();
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const { return m_owner; }
    virtual Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
    AcDbDatabase* database() const;
    void getAcDbHandle(AcDbHandle& handle) const;
    AcDbHandle handle() const;

    // Open state. close() of an object that isn't open fails.
    Acad::ErrorStatus close();
    Acad::ErrorStatus cancel() { return close(); }
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNotifyEnabled() const;
    bool isNewObject() const;
    void assertReadEnabled() const {}
    void assertWriteEnabled(bool autoUndo = true, bool recordModified = true);

    Acad::ErrorStatus erase(bool erasing = true);
    bool isErased() const { return (m_flags & kErased) != 0; }

    // Extended data: the whole chain (-3 is not part of it; each application
    // starts with 1001), or that of one application. The caller frees it.
    resbuf* xData(const char* regappName = nullptr) const;
    // Replaces the data of each application named in the chain; an
    // application with no groups behind its 1001 loses its data.
    virtual Acad::ErrorStatus setXData(const resbuf* xdata);

    AcDbObjectId extensionDictionary() const;
    Acad::ErrorStatus createExtensionDictionary();
    Acad::ErrorStatus releaseExtensionDictionary();
    void addPersistentReactor(AcDbObjectId id);
    Acad::ErrorStatus removePersistentReactor(AcDbObjectId id);

    // A copy of the object's data, not in any database.
    AcRxObject* clone() const;

    // Host internals: the table of the object's DXF record and the member
    // block that a level of the table addresses.
    virtual const lumo::db::Record& dxfRecord() const;
    virtual void* dxfData(int level);
    const void* dxfBlock(int level) const { return const_cast<AcDbObject*>(this)->dxfData(level); }
    lumo::db::ObjectExtras* extras() const { return m_extras; }
    lumo::db::ObjectExtras& ensureExtras();
    AcDbStub* stub() const { return m_stub; }
    // Takes the object open in a mode, with the host's checks of modes.
    Acad::ErrorStatus openFor(AcDb::OpenMode mode);
    bool isOpen() const { return m_readers > 0 || (m_flags & (kOpenWrite | kOpenNotify)) != 0; }
    void attach(AcDbStub* stub) { m_stub = stub; }
    void setOwner(AcDbObjectId owner) { m_owner = owner; }
    void setErasedFlag(bool on) { m_flags = on ? (m_flags | kErased) : (m_flags & ~kErased); }
    // Which fields of the record came from input (bit per field index).
    uint64_t present() const { return m_present; }
    void setPresent(uint64_t bits) { m_present = bits; }

protected:
    enum Flags : uint8_t { kErased = 1, kOpenWrite = 2, kOpenNotify = 4 };
    AcDbStub* m_stub = nullptr;
    AcDbObjectId m_owner;
    lumo::db::ObjectExtras* m_extras = nullptr;
    uint64_t m_present = 0;
    uint8_t m_flags = 0;
    uint8_t m_readers = 0;
};

class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity);
    AcDbEntity();
    ~AcDbEntity() override;

    // The block table record that owns the entity.
    AcDbObjectId blockId() const { return ownerId(); }

    char* layer() const;                       // caller frees (malloc)
    AcDbObjectId layerId() const { return m_common.layer; }
    Acad::ErrorStatus setLayer(const char* name, bool doSubents = true);
    Acad::ErrorStatus setLayer(AcDbObjectId layer, bool doSubents = true);
    char* linetype() const;                    // caller frees (malloc)
    AcDbObjectId linetypeId() const { return m_common.linetype; }
    Acad::ErrorStatus setLinetype(const char* name, bool doSubents = true);
    Acad::ErrorStatus setLinetype(AcDbObjectId linetype, bool doSubents = true);
    uint16_t colorIndex() const { return static_cast<uint16_t>(m_common.color); }
    AcCmColor color() const;
    Acad::ErrorStatus setColor(const AcCmColor& color, bool doSubents = true);
    Acad::ErrorStatus setColorIndex(uint16_t color, bool doSubents = true);
    double linetypeScale() const { return m_common.ltscale; }
    Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);
    AcDb::LineWeight lineWeight() const { return static_cast<AcDb::LineWeight>(m_common.lineweight); }
    Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight, bool doSubents = true);
    AcDb::Visibility visibility() const { return static_cast<AcDb::Visibility>(m_common.invisible); }
    Acad::ErrorStatus setVisibility(AcDb::Visibility v, bool doSubents = true);
    // Layer, linetype, colour, linetype scale, lineweight and visibility of `other`.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other, bool doSubents = true);
    // Sets the properties from the drawing's current values (CLAYER ...).
    void setDatabaseDefaults(AcDbDatabase* db = nullptr);

    // Geometry shared by the entity kinds that know it.
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform);
    // The world box of the entity; text boxes are estimated from the height
    // and the number of characters. eInvalidExtents for an entity with no
    // geometry to box.
    Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;

    // Host internals: the vertices or attributes that follow a complex
    // entity in a file, or null.
    virtual lumo::db::ComplexParts* complexParts() { return nullptr; }

    // Members of the "AcDbEntity" part of every entity record.
    struct Common {
        AcDbObjectId layer;
        AcDbObjectId linetype;
        AcDbObjectId plotStyle;
        double ltscale = 1.0;
        int16_t color = 256;
        int16_t lineweight = -1;
        int16_t invisible = 0;
        int16_t paperSpace = 0;
    };
    void* dxfData(int level) override;

protected:
    Common m_common;
};

class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase);
    // With buildDefaultDrawing the database holds what a new drawing holds.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId groupDictionaryId() const;
    AcDbObjectId modelSpaceId() const;
    AcDbObjectId paperSpaceId() const;
    AcDbObjectId currentSpaceId() const;

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getViewTable(AcDbViewTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getUCSTable(AcDbUCSTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getViewportTable(AcDbViewportTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode);
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& t, AcDb::OpenMode m) { return getBlockTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& t, AcDb::OpenMode m) { return getLayerTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& t, AcDb::OpenMode m) { return getTextStyleTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbLinetypeTable*& t, AcDb::OpenMode m) { return getLinetypeTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbViewTable*& t, AcDb::OpenMode m) { return getViewTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbUCSTable*& t, AcDb::OpenMode m) { return getUCSTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbViewportTable*& t, AcDb::OpenMode m) { return getViewportTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& t, AcDb::OpenMode m) { return getRegAppTable(t, m); }
    Acad::ErrorStatus getSymbolTable(AcDbDimStyleTable*& t, AcDb::OpenMode m) { return getDimStyleTable(t, m); }
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode);
    Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dict, AcDb::OpenMode mode);

    // Adds an object that no one owns yet (dictionaries, xrecords ...).
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
    Acad::ErrorStatus addAcDbObject(AcDbObject* object);
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                      const AcDbHandle& handle, uint32_t reserved = 0);

    // Current settings kept in the drawing's header.
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId layer);
    AcDbObjectId celtype() const;
    AcDbObjectId textstyle() const;
    double ltscale() const;
    double textsize() const;
    double thickness() const;
    AcDbHandle handseed() const;
    int tilemode() const;
    Acad::ErrorStatus setTilemode(bool model);
    AcGePoint3d ucsorg() const;
    AcGeVector3d ucsxdir() const;
    AcGeVector3d ucsydir() const;
    AcGePoint3d extmin() const;
    AcGePoint3d extmax() const;
    Acad::ErrorStatus updateExt(bool doBestFit = false);

    Acad::ErrorStatus readDxfFile(const char* fileName);
    Acad::ErrorStatus dxfOut(const char* fileName, int precision = 16,
                             AcDb::AcDbDwgVersion version = AcDb::kDHL_CURRENT);
    const char* originalFileName() const;

    // Host internals.
    struct Impl;
    Impl& impl() const { return *m_impl; }

private:
    Impl* m_impl;
};

class AcDbHostApplicationServices {
public:
    // The session's drawing; a new drawing is made on first use.
    AcDbDatabase* workingDatabase() const;
    void setWorkingDatabase(AcDbDatabase* db);
};
AcDbHostApplicationServices* acdbHostApplicationServices();

Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

// Opens an object of a given class; eNotThatKindOfClass (and nothing open)
// when the object is of another class.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                 bool openErased = false) {
    AcDbObject* obj = nullptr;
    object = nullptr;
    Acad::ErrorStatus es = acdbOpenAcDbObject(obj, id, mode, openErased);
    if (es != Acad::eOk) return es;
    object = T::cast(obj);
    if (!object) {
        obj->close();
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
