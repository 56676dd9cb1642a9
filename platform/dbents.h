// Entity classes of the drawing database.
//
// Angles are radians; points are world coordinates unless the entity keeps
// them in its own coordinate system (circle, arc, text and the like keep
// their points in the system of their normal, as the drawing format does).
// Each class keeps its members in a `Data` block that its record table
// addresses; the accessors read and write that block.
#pragma once
#include <string>
#include <vector>

#include "platform/acge.h"
#include "platform/dbmain.h"
#include "platform/dbextents.h"
#include "platform/gescl3d.h"

class AcDbAttribute;
class AcDbObjectIterator;

namespace lumo::db {
// Sub-entities that follow a complex entity (vertices, attributes) and the
// SEQEND that closes them.
struct ComplexParts {
    std::vector<AcDbStub*> subents;
    AcDbStub* seqend = nullptr;
};
}

#define LUMO_DB_RECORD                                      \
    const lumo::db::Record& dxfRecord() const override;     \
    void* dxfData(int level) override

class AcDbCurve : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbCurve);
    virtual bool isClosed() const { return false; }
    virtual bool isPeriodic() const { return false; }
    virtual Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const;
    virtual Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const;
};

class AcDbLine : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbLine);
    AcDbLine();
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);
    AcGePoint3d startPoint() const { return m_d.start; }
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& p) { m_d.start = p; return Acad::eOk; }
    AcGePoint3d endPoint() const { return m_d.end; }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& p) { m_d.end = p; return Acad::eOk; }
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override { p = m_d.start; return Acad::eOk; }
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override { p = m_d.end; return Acad::eOk; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        double thickness = 0;
        AcGePoint3d start, end;
        AcGeVector3d normal{0, 0, 1};
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbCircle : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbCircle);
    AcDbCircle();
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);
    AcGePoint3d center() const { return m_d.center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p) { m_d.center = p; return Acad::eOk; }
    double radius() const { return m_d.radius; }
    Acad::ErrorStatus setRadius(double r);
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    bool isClosed() const override { return true; }
    bool isPeriodic() const override { return true; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        double thickness = 0;
        AcGePoint3d center;
        double radius = 1;
        AcGeVector3d normal{0, 0, 1};
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbArc : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbArc);
    AcDbArc();
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);
    AcDbArc(const AcGePoint3d& center, const AcGeVector3d& normal, double radius, double startAngle,
            double endAngle);
    AcGePoint3d center() const { return m_d.center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p) { m_d.center = p; return Acad::eOk; }
    double radius() const { return m_d.radius; }
    Acad::ErrorStatus setRadius(double r);
    double startAngle() const { return m_d.startAngle; }
    Acad::ErrorStatus setStartAngle(double a) { m_d.startAngle = a; return Acad::eOk; }
    double endAngle() const { return m_d.endAngle; }
    Acad::ErrorStatus setEndAngle(double a) { m_d.endAngle = a; return Acad::eOk; }
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        double thickness = 0;
        AcGePoint3d center;
        double radius = 1;
        AcGeVector3d normal{0, 0, 1};
        double startAngle = 0;
        double endAngle = 0;
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbPoint : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbPoint);
    AcDbPoint();
    explicit AcDbPoint(const AcGePoint3d& position);
    AcGePoint3d position() const { return m_d.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_d.position = p; return Acad::eOk; }
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    double ecsRotation() const { return m_d.rotation; }
    Acad::ErrorStatus setEcsRotation(double a) { m_d.rotation = a; return Acad::eOk; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGePoint3d position;
        double thickness = 0;
        AcGeVector3d normal{0, 0, 1};
        double rotation = 0;
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

// SOLID and TRACE: four corners in zigzag order.
class AcDbTrace : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbTrace);
    AcDbTrace();
    AcDbTrace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3);
    Acad::ErrorStatus getPointAt(uint16_t index, AcGePoint3d& p) const;
    Acad::ErrorStatus setPointAt(uint16_t index, const AcGePoint3d& p);
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGePoint3d corners[4];
        double thickness = 0;
        AcGeVector3d normal{0, 0, 1};
    };
    LUMO_DB_RECORD;
protected:
    Data m_d;
};

class AcDbSolid : public AcDbTrace {
public:
    ACRX_DECLARE_MEMBERS(AcDbSolid);
    AcDbSolid();
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3);
    AcDbSolid(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2);
    const lumo::db::Record& dxfRecord() const override;
};

// 3DFACE: four corners; edge i is invisible when bit i of the flags is set.
class AcDbFace : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbFace);
    AcDbFace();
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2, const AcGePoint3d& p3,
             bool e0vis = true, bool e1vis = true, bool e2vis = true, bool e3vis = true);
    AcDbFace(const AcGePoint3d& p0, const AcGePoint3d& p1, const AcGePoint3d& p2,
             bool e0vis = true, bool e1vis = true, bool e2vis = true, bool e3vis = true);
    Acad::ErrorStatus getVertexAt(uint16_t index, AcGePoint3d& p) const;
    Acad::ErrorStatus setVertexAt(uint16_t index, const AcGePoint3d& p);
    Acad::ErrorStatus isEdgeVisibleAt(uint16_t index, bool& visible) const;
    Acad::ErrorStatus makeEdgeInvisibleAt(uint16_t index);
    Acad::ErrorStatus makeEdgeVisibleAt(uint16_t index);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGePoint3d corners[4];
        int16_t invisible = 0;
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText);
    AcDbText();
    AcDbText(const AcGePoint3d& position, const char* text, AcDbObjectId style = AcDbObjectId::kNull,
             double height = 0, double rotation = 0);
    AcGePoint3d position() const { return m_t.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_t.position = p; return Acad::eOk; }
    AcGePoint3d alignmentPoint() const { return m_t.alignment; }
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& p) { m_t.alignment = p; return Acad::eOk; }
    bool isDefaultAlignment() const { return m_t.horizontal == 0 && m_t.vertical == 0; }
    char* textString() const;      // caller frees
    const char* textStringConst() const { return m_t.text.c_str(); }
    Acad::ErrorStatus setTextString(const char* text);
    AcDbObjectId textStyle() const { return m_t.style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style) { m_t.style = style; return Acad::eOk; }
    double height() const { return m_t.height; }
    Acad::ErrorStatus setHeight(double h) { m_t.height = h; return Acad::eOk; }
    double rotation() const { return m_t.rotation; }
    Acad::ErrorStatus setRotation(double a) { m_t.rotation = a; return Acad::eOk; }
    double widthFactor() const { return m_t.widthFactor; }
    Acad::ErrorStatus setWidthFactor(double f) { m_t.widthFactor = f; return Acad::eOk; }
    double oblique() const { return m_t.oblique; }
    Acad::ErrorStatus setOblique(double a) { m_t.oblique = a; return Acad::eOk; }
    double thickness() const { return m_t.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_t.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_t.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_t.normal = n; return Acad::eOk; }
    AcDb::TextHorzMode horizontalMode() const { return static_cast<AcDb::TextHorzMode>(m_t.horizontal); }
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode m) { m_t.horizontal = static_cast<int16_t>(m); return Acad::eOk; }
    AcDb::TextVertMode verticalMode() const { return static_cast<AcDb::TextVertMode>(m_t.vertical); }
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode m) { m_t.vertical = static_cast<int16_t>(m); return Acad::eOk; }
    bool isMirroredInX() const { return (m_t.generation & 2) != 0; }
    Acad::ErrorStatus mirrorInX(bool on);
    bool isMirroredInY() const { return (m_t.generation & 4) != 0; }
    Acad::ErrorStatus mirrorInY(bool on);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        double thickness = 0;
        AcGePoint3d position;
        double height = 0;
        std::string text;
        double rotation = 0;
        double widthFactor = 1;
        double oblique = 0;
        AcDbObjectId style;
        int16_t generation = 0;
        int16_t horizontal = 0;
        int16_t vertical = 0;
        AcGePoint3d alignment;
        AcGeVector3d normal{0, 0, 1};
    };
    LUMO_DB_RECORD;
protected:
    Data m_t;
};

class AcDbAttributeDefinition : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttributeDefinition);
    AcDbAttributeDefinition();
    AcDbAttributeDefinition(const AcGePoint3d& position, const char* text, const char* tag,
                            const char* prompt, AcDbObjectId style = AcDbObjectId::kNull);
    char* prompt() const;          // caller frees
    const char* promptConst() const { return m_a.prompt.c_str(); }
    Acad::ErrorStatus setPrompt(const char* text);
    char* tag() const;             // caller frees
    const char* tagConst() const { return m_a.tag.c_str(); }
    Acad::ErrorStatus setTag(const char* text);
    bool isInvisible() const { return (m_a.flags & 1) != 0; }
    bool isConstant() const { return (m_a.flags & 2) != 0; }
    bool isVerifiable() const { return (m_a.flags & 4) != 0; }
    bool isPreset() const { return (m_a.flags & 8) != 0; }
    Acad::ErrorStatus setInvisible(bool on);
    Acad::ErrorStatus setConstant(bool on);
    uint16_t fieldLength() const { return static_cast<uint16_t>(m_a.fieldLength); }

    struct Data {
        std::string prompt;
        std::string tag;
        int16_t flags = 0;
        int16_t fieldLength = 0;
        int16_t vertical = 0;
    };
    LUMO_DB_RECORD;
private:
    Data m_a;
};

class AcDbAttribute : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute);
    AcDbAttribute();
    AcDbAttribute(const AcGePoint3d& position, const char* text, const char* tag,
                  AcDbObjectId style = AcDbObjectId::kNull);
    char* tag() const;             // caller frees
    const char* tagConst() const { return m_a.tag.c_str(); }
    Acad::ErrorStatus setTag(const char* text);
    bool isInvisible() const { return (m_a.flags & 1) != 0; }
    bool isConstant() const { return (m_a.flags & 2) != 0; }
    bool isVerifiable() const { return (m_a.flags & 4) != 0; }
    bool isPreset() const { return (m_a.flags & 8) != 0; }
    Acad::ErrorStatus setInvisible(bool on);
    uint16_t fieldLength() const { return static_cast<uint16_t>(m_a.fieldLength); }
    // Takes text settings and tag from a definition, placed by a block
    // reference's transform.
    Acad::ErrorStatus setAttributeFromBlock(const AcDbAttributeDefinition* def, const AcGeMatrix3d& xform);

    struct Data {
        std::string tag;
        int16_t flags = 0;
        int16_t fieldLength = 0;
        int16_t vertical = 0;
    };
    LUMO_DB_RECORD;
private:
    Data m_a;
};

class AcDbMText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbMText);
    AcDbMText();
    enum AttachmentPoint {
        kTopLeft = 1, kTopCenter = 2, kTopRight = 3, kMiddleLeft = 4, kMiddleCenter = 5,
        kMiddleRight = 6, kBottomLeft = 7, kBottomCenter = 8, kBottomRight = 9,
    };
    AcGePoint3d location() const { return m_d.location; }
    Acad::ErrorStatus setLocation(const AcGePoint3d& p) { m_d.location = p; return Acad::eOk; }
    char* contents() const;        // caller frees
    const char* contentsConst() const { return m_d.contents.c_str(); }
    int setContents(const char* text);
    double textHeight() const { return m_d.height; }
    Acad::ErrorStatus setTextHeight(double h) { m_d.height = h; return Acad::eOk; }
    double width() const { return m_d.width; }
    Acad::ErrorStatus setWidth(double w) { m_d.width = w; return Acad::eOk; }
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    AttachmentPoint attachment() const { return static_cast<AttachmentPoint>(m_d.attachment); }
    Acad::ErrorStatus setAttachment(AttachmentPoint a) { m_d.attachment = static_cast<int16_t>(a); return Acad::eOk; }
    AcDbObjectId textStyle() const { return m_d.style; }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style) { m_d.style = style; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    AcGeVector3d direction() const { return m_d.direction; }
    Acad::ErrorStatus setDirection(const AcGeVector3d& v) { m_d.direction = v; return Acad::eOk; }
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGePoint3d location;
        double height = 0;
        double width = 0;
        int16_t attachment = 1;
        int16_t drawingDirection = 1;
        std::string contents;
        AcDbObjectId style;
        AcGeVector3d normal{0, 0, 1};
        AcGeVector3d direction{1, 0, 0};
        double rotation = 0;
        double actualWidth = 0;
        double actualHeight = 0;
        int16_t spacingStyle = 1;
        double spacingFactor = 1;
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbBlockReference : public AcDbEntity, public lumo::db::ComplexParts {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference);
    AcDbBlockReference();
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);
    lumo::db::ComplexParts* complexParts() override { return this; }
    AcDbObjectId blockTableRecord() const { return m_d.block; }
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block) { m_d.block = block; return Acad::eOk; }
    AcGePoint3d position() const { return m_d.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_d.position = p; return Acad::eOk; }
    AcGeScale3d scaleFactors() const { return {m_d.scale[0], m_d.scale[1], m_d.scale[2]}; }
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& s);
    double rotation() const { return m_d.rotation; }
    Acad::ErrorStatus setRotation(double a) { m_d.rotation = a; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    // Block coordinates to world: base point, scale, rotation, position, normal.
    AcGeMatrix3d blockTransform() const;
    // Adds an attribute made with new; the reference must be in a database.
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    AcDbObjectIterator* attributeIterator() const;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        int16_t follows = 0;
        AcDbObjectId block;
        AcGePoint3d position;
        double scale[3] = {1, 1, 1};
        double rotation = 0;
        int16_t columns = 1;
        int16_t rows = 1;
        double columnSpacing = 0;
        double rowSpacing = 0;
        AcGeVector3d normal{0, 0, 1};
    };
    LUMO_DB_RECORD;
protected:
    Data m_d;
};

class AcDbMInsertBlock : public AcDbBlockReference {
public:
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock);
    AcDbMInsertBlock();
    uint16_t columns() const { return static_cast<uint16_t>(m_d.columns); }
    Acad::ErrorStatus setColumns(uint16_t n) { m_d.columns = static_cast<int16_t>(n); return Acad::eOk; }
    uint16_t rows() const { return static_cast<uint16_t>(m_d.rows); }
    Acad::ErrorStatus setRows(uint16_t n) { m_d.rows = static_cast<int16_t>(n); return Acad::eOk; }
    double columnSpacing() const { return m_d.columnSpacing; }
    Acad::ErrorStatus setColumnSpacing(double d) { m_d.columnSpacing = d; return Acad::eOk; }
    double rowSpacing() const { return m_d.rowSpacing; }
    Acad::ErrorStatus setRowSpacing(double d) { m_d.rowSpacing = d; return Acad::eOk; }
    const lumo::db::Record& dxfRecord() const override;
};

// BLOCK and ENDBLK: open and close a block definition.
class AcDbBlockBegin : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
    AcDbBlockBegin();
    struct Data {
        std::string name;
        int16_t flags = 0;
        AcGePoint3d base;
        std::string name2;
        std::string xrefPath;
        std::string description;
    };
    Data& data() { return m_d; }
    const Data& data() const { return m_d; }
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbBlockEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
    AcDbBlockEnd();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbSequenceEnd : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd);
    AcDbSequenceEnd();
    const lumo::db::Record& dxfRecord() const override;
};

// LWPOLYLINE.
class AcDbPolyline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyline);
    AcDbPolyline();
    explicit AcDbPolyline(unsigned int numVerts);
    unsigned int numVerts() const { return static_cast<unsigned int>(m_d.verts.size()); }
    // A width below 0 stands for the constant width.
    Acad::ErrorStatus addVertexAt(unsigned int index, const AcGePoint2d& p, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus removeVertexAt(unsigned int index);
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint2d& p) const;
    Acad::ErrorStatus getPointAt(unsigned int index, AcGePoint3d& p) const;   // world
    Acad::ErrorStatus setPointAt(unsigned int index, const AcGePoint2d& p);
    Acad::ErrorStatus getBulgeAt(unsigned int index, double& bulge) const;
    Acad::ErrorStatus setBulgeAt(unsigned int index, double bulge);
    Acad::ErrorStatus getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    Acad::ErrorStatus setWidthsAt(unsigned int index, double startWidth, double endWidth);
    Acad::ErrorStatus getConstantWidth(double& width) const;
    Acad::ErrorStatus setConstantWidth(double width);
    void reset(bool reuse, unsigned int numVerts);
    bool isClosed() const override { return (m_d.flags & 1) != 0; }
    void setClosed(bool on);
    bool hasPlinegen() const { return (m_d.flags & 128) != 0; }
    void setPlinegen(bool on);
    double elevation() const { return m_d.elevation; }
    void setElevation(double e) { m_d.elevation = e; }
    double thickness() const { return m_d.thickness; }
    Acad::ErrorStatus setThickness(double t) { m_d.thickness = t; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { m_d.normal = n; return Acad::eOk; }
    bool isOnlyLines() const;
    bool hasBulges() const { return !isOnlyLines(); }
    bool hasWidth() const;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Vertex {
        AcGePoint2d point;
        double startWidth = 0;
        double endWidth = 0;
        double bulge = 0;
    };
    struct Data {
        int16_t flags = 0;
        double constantWidth = 0;
        double elevation = 0;
        double thickness = 0;
        std::vector<Vertex> verts;
        AcGeVector3d normal{0, 0, 1};
    };
    Data& data() { return m_d; }
    const Data& data() const { return m_d; }
    LUMO_DB_RECORD;
private:
    Data m_d;
};

// Vertices of the old polylines; every kind keeps the same members.
class AcDbVertex : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbVertex);
    struct Data {
        AcGePoint3d position;
        double startWidth = 0;
        double endWidth = 0;
        double bulge = 0;
        int16_t flags = 0;
        double tangent = 0;
        int16_t index[4] = {0, 0, 0, 0};
    };
    Data& data() { return m_v; }
    const Data& data() const { return m_v; }
    void* dxfData(int level) override;
protected:
    Data m_v;
};

class AcDb2dVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dVertex);
    AcDb2dVertex();
    AcDb2dVertex(const AcGePoint3d& position, double bulge = 0, double startWidth = 0, double endWidth = 0);
    AcDb::Vertex2dType vertexType() const;
    AcGePoint3d position() const { return m_v.position; }   // in the polyline's own system
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_v.position = p; return Acad::eOk; }
    double bulge() const { return m_v.bulge; }
    Acad::ErrorStatus setBulge(double b) { m_v.bulge = b; return Acad::eOk; }
    double startWidth() const { return m_v.startWidth; }
    Acad::ErrorStatus setStartWidth(double w) { m_v.startWidth = w; return Acad::eOk; }
    double endWidth() const { return m_v.endWidth; }
    Acad::ErrorStatus setEndWidth(double w) { m_v.endWidth = w; return Acad::eOk; }
    const lumo::db::Record& dxfRecord() const override;
};

class AcDb3dPolylineVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex);
    AcDb3dPolylineVertex();
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position);
    AcGePoint3d position() const { return m_v.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_v.position = p; return Acad::eOk; }
    AcDb::Vertex3dType vertexType() const;
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbPolygonMeshVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMeshVertex);
    AcDbPolygonMeshVertex();
    explicit AcDbPolygonMeshVertex(const AcGePoint3d& position);
    AcGePoint3d position() const { return m_v.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_v.position = p; return Acad::eOk; }
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbPolyFaceMeshVertex : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMeshVertex);
    AcDbPolyFaceMeshVertex();
    explicit AcDbPolyFaceMeshVertex(const AcGePoint3d& position);
    AcGePoint3d position() const { return m_v.position; }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p) { m_v.position = p; return Acad::eOk; }
    const lumo::db::Record& dxfRecord() const override;
};

// A face of a polyface mesh: up to four vertex numbers from 1, negative
// for an invisible edge.
class AcDbFaceRecord : public AcDbVertex {
public:
    ACRX_DECLARE_MEMBERS(AcDbFaceRecord);
    AcDbFaceRecord();
    AcDbFaceRecord(int16_t v0, int16_t v1, int16_t v2, int16_t v3);
    Acad::ErrorStatus getVertexAt(uint16_t index, int16_t& vertex) const;
    Acad::ErrorStatus setVertexAt(uint16_t index, int16_t vertex);
    Acad::ErrorStatus isEdgeVisibleAt(uint16_t index, bool& visible) const;
    Acad::ErrorStatus makeEdgeInvisibleAt(uint16_t index);
    Acad::ErrorStatus makeEdgeVisibleAt(uint16_t index);
    const lumo::db::Record& dxfRecord() const override;
};

// Members shared by the four kinds of POLYLINE.
namespace lumo::db {
struct PolylineData {
    int16_t follows = 1;
    AcGePoint3d origin;          // (0, 0, elevation) for 2D polylines
    double thickness = 0;
    int16_t flags = 0;
    double startWidth = 0;
    double endWidth = 0;
    int16_t m = 0;               // mesh M count, or polyface vertex count
    int16_t n = 0;               // mesh N count, or polyface face count
    int16_t mDensity = 0;
    int16_t nDensity = 0;
    int16_t curveType = 0;
    AcGeVector3d normal{0, 0, 1};
};
}

// What the four POLYLINE kinds share: their members, their vertices and
// the SEQEND behind them.
namespace lumo::db {
struct PolylineParts : ComplexParts {
    PolylineData poly;
    AcDbObjectIterator* vertexIterator() const;
    // Adds a vertex made with new behind the others; the polyline must be in
    // a database.
    Acad::ErrorStatus addVertex(AcDbEntity& self, AcDbObjectId* id, AcDbVertex* vertex);
};
}

#define LUMO_POLYLINE_COMMON                                                                 \
    double elevation() const { return poly.origin.z; }                                       \
    Acad::ErrorStatus setElevation(double e) { poly.origin.z = e; return Acad::eOk; }        \
    double thickness() const { return poly.thickness; }                                      \
    Acad::ErrorStatus setThickness(double t) { poly.thickness = t; return Acad::eOk; }       \
    AcGeVector3d normal() const { return poly.normal; }                                      \
    Acad::ErrorStatus setNormal(const AcGeVector3d& n) { poly.normal = n; return Acad::eOk; } \
    Acad::ErrorStatus makeClosed() { poly.flags |= 1; return Acad::eOk; }                    \
    Acad::ErrorStatus makeOpen() { poly.flags &= ~1; return Acad::eOk; }                     \
    lumo::db::ComplexParts* complexParts() override { return this; }                        \
    const lumo::db::Record& dxfRecord() const override;                                      \
    void* dxfData(int level) override

class AcDb2dPolyline : public AcDbCurve, public lumo::db::PolylineParts {
public:
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline);
    AcDb2dPolyline();
    // The vertices wait until the polyline is added to a database.
    AcDb2dPolyline(AcDb::Poly2dType type, const AcGePoint3dArray& vertices, double elevation = 0,
                   bool closed = false, double startWidth = 0, double endWidth = 0);
    ~AcDb2dPolyline() override;
    AcDb::Poly2dType polyType() const;
    bool isClosed() const override { return (poly.flags & 1) != 0; }
    double defaultStartWidth() const { return poly.startWidth; }
    Acad::ErrorStatus setDefaultStartWidth(double w) { poly.startWidth = w; return Acad::eOk; }
    double defaultEndWidth() const { return poly.endWidth; }
    Acad::ErrorStatus setDefaultEndWidth(double w) { poly.endWidth = w; return Acad::eOk; }
    bool isLinetypeGenerationOn() const { return (poly.flags & 128) != 0; }
    Acad::ErrorStatus appendVertex(AcDb2dVertex* vertex) { return addVertex(*this, nullptr, vertex); }
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex) { return addVertex(*this, &id, vertex); }
    // A vertex's position in world coordinates.
    AcGePoint3d vertexPosition(const AcDb2dVertex& vertex) const;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    LUMO_POLYLINE_COMMON;

    // Vertices given to the constructor, added with the polyline.
    std::vector<AcDb2dVertex*>& pending() { return m_pending; }
private:
    std::vector<AcDb2dVertex*> m_pending;
};

class AcDb3dPolyline : public AcDbCurve, public lumo::db::PolylineParts {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline);
    AcDb3dPolyline();
    AcDb::Poly3dType polyType() const;
    bool isClosed() const override { return (poly.flags & 1) != 0; }
    Acad::ErrorStatus appendVertex(AcDb3dPolylineVertex* vertex) { return addVertex(*this, nullptr, vertex); }
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDb3dPolylineVertex* vertex) {
        return addVertex(*this, &id, vertex);
    }
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    LUMO_POLYLINE_COMMON;
};

class AcDbPolygonMesh : public AcDbEntity, public lumo::db::PolylineParts {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolygonMesh);
    AcDbPolygonMesh();
    AcDb::PolyMeshType polyMeshType() const { return static_cast<AcDb::PolyMeshType>(poly.curveType); }
    int16_t mSize() const { return poly.m; }
    int16_t nSize() const { return poly.n; }
    Acad::ErrorStatus setMSize(int16_t m) { poly.m = m; return Acad::eOk; }
    Acad::ErrorStatus setNSize(int16_t n) { poly.n = n; return Acad::eOk; }
    bool isMClosed() const { return (poly.flags & 1) != 0; }
    bool isNClosed() const { return (poly.flags & 32) != 0; }
    Acad::ErrorStatus appendVertex(AcDbPolygonMeshVertex* vertex) { return addVertex(*this, nullptr, vertex); }
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbPolygonMeshVertex* vertex) {
        return addVertex(*this, &id, vertex);
    }
    LUMO_POLYLINE_COMMON;
};

class AcDbPolyFaceMesh : public AcDbEntity, public lumo::db::PolylineParts {
public:
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMesh);
    AcDbPolyFaceMesh();
    int16_t numVertices() const { return poly.m; }
    int16_t numFaces() const { return poly.n; }
    Acad::ErrorStatus appendVertex(AcDbPolyFaceMeshVertex* vertex);
    Acad::ErrorStatus appendFaceRecord(AcDbFaceRecord* face);
    LUMO_POLYLINE_COMMON;
};
#undef LUMO_POLYLINE_COMMON

// Walks the sub-entities of a polyline or block reference.
class AcDbObjectIterator {
public:
    explicit AcDbObjectIterator(std::vector<AcDbStub*> ids) : m_ids(std::move(ids)) {}
    void start(bool atEnd = false) { m_pos = atEnd && !m_ids.empty() ? m_ids.size() - 1 : 0; }
    void step(bool backwards = false, bool skipErased = true);
    bool done() const { return m_pos >= m_ids.size(); }
    AcDbObjectId objectId() const { return done() ? AcDbObjectId() : AcDbObjectId(m_ids[m_pos]); }
    // The entity itself, not opened: valid while the database holds it.
    AcDbEntity* entity() const;
    void setPosition(AcDbObjectId id);
private:
    std::vector<AcDbStub*> m_ids;
    size_t m_pos = 0;
};

class AcDbEllipse : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbEllipse);
    AcDbEllipse();
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                double radiusRatio, double startAngle = 0.0, double endAngle = 6.283185307179586);
    AcGePoint3d center() const { return m_d.center; }
    Acad::ErrorStatus setCenter(const AcGePoint3d& p) { m_d.center = p; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    AcGeVector3d majorAxis() const { return m_d.majorAxis; }
    AcGeVector3d minorAxis() const;
    double radiusRatio() const { return m_d.ratio; }
    Acad::ErrorStatus setRadiusRatio(double r);
    double startParam() const { return m_d.startParam; }
    double endParam() const { return m_d.endParam; }
    Acad::ErrorStatus setStartParam(double p) { m_d.startParam = p; return Acad::eOk; }
    Acad::ErrorStatus setEndParam(double p) { m_d.endParam = p; return Acad::eOk; }
    double startAngle() const;
    double endAngle() const;
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& normal, const AcGeVector3d& majorAxis,
                          double radiusRatio, double startAngle = 0.0, double endAngle = 6.283185307179586);
    bool isClosed() const override;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGePoint3d center;
        AcGeVector3d majorAxis{1, 0, 0};
        AcGeVector3d normal{0, 0, 1};
        double ratio = 1;
        double startParam = 0;
        double endParam = 6.283185307179586;
    };
    LUMO_DB_RECORD;
private:
    Data m_d;
};

class AcDbSpline : public AcDbCurve {
public:
    ACRX_DECLARE_MEMBERS(AcDbSpline);
    AcDbSpline();
    // Fit data: a spline through points.
    AcDbSpline(const AcGePoint3dArray& fitPoints, int order = 4, double fitTolerance = 0.0);
    // Control data.
    AcDbSpline(int degree, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
               const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPtTol = 0.0,
               double knotTol = 0.0);
    int degree() const { return m_d.degree; }
    bool isRational() const { return (m_d.flags & 4) != 0; }
    bool isClosed() const override { return (m_d.flags & 1) != 0; }
    bool isPeriodic() const override { return (m_d.flags & 2) != 0; }
    bool isPlanar() const { return (m_d.flags & 8) != 0; }
    int numControlPoints() const { return static_cast<int>(m_d.controlPoints.size()); }
    Acad::ErrorStatus getControlPointAt(int index, AcGePoint3d& p) const;
    Acad::ErrorStatus setControlPointAt(int index, const AcGePoint3d& p);
    int numFitPoints() const { return static_cast<int>(m_d.fitPoints.size()); }
    Acad::ErrorStatus getFitPointAt(int index, AcGePoint3d& p) const;
    bool hasFitData() const { return !m_d.fitPoints.empty(); }
    double weightAt(int index) const;
    Acad::ErrorStatus getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                                   AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                   AcGeDoubleArray& weights, double& controlPtTol, double& knotTol) const;
    Acad::ErrorStatus getStartPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus getEndPoint(AcGePoint3d& p) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    struct Data {
        AcGeVector3d normal{0, 0, 1};
        int16_t flags = 8;
        int16_t degree = 3;
        double knotTol = 1e-10;
        double controlTol = 1e-10;
        double fitTol = 1e-10;
        AcGeVector3d startTangent;
        AcGeVector3d endTangent;
        std::vector<double> knots;
        std::vector<double> weights;
        std::vector<AcGePoint3d> controlPoints;
        std::vector<AcGePoint3d> fitPoints;
    };
    Data& data() { return m_d; }
    LUMO_DB_RECORD;
private:
    Data m_d;
};

// REGION, 3DSOLID and BODY: the modeler's data is kept as its text lines.
class AcDbModelerGeometryBase : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbModelerGeometryBase);
    struct Data {
        int16_t version = 1;
        std::vector<std::string> lines;   // each line's text; continuation lines start with '\3'
    };
    Data& data() { return m_g; }
    void* dxfData(int level) override;
protected:
    Data m_g;
};

class AcDbRegion : public AcDbModelerGeometryBase {
public:
    ACRX_DECLARE_MEMBERS(AcDbRegion);
    AcDbRegion();
    // Regions from closed loops of curves need the solid modeler, which the
    // host doesn't have: eNotImplementedYet.
    static Acad::ErrorStatus createFromCurves(const AcDbVoidPtrArray& curveSegments,
                                              AcDbVoidPtrArray& regions);
    const lumo::db::Record& dxfRecord() const override;
};

class AcDb3dSolid : public AcDbModelerGeometryBase {
public:
    ACRX_DECLARE_MEMBERS(AcDb3dSolid);
    AcDb3dSolid();
    const lumo::db::Record& dxfRecord() const override;
};

class AcDbBody : public AcDbModelerGeometryBase {
public:
    ACRX_DECLARE_MEMBERS(AcDbBody);
    AcDbBody();
    const lumo::db::Record& dxfRecord() const override;
};

#undef LUMO_DB_RECORD
