// Hatches: boundary loops, pattern, the points picked inside and the computed pattern lines.
#pragma once
#include <string>
#include <vector>

#include "platform/acge.h"
#include "platform/dbmain.h"

class AcDbHatch : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbHatch);
    AcDbHatch();

    enum HatchLoopType {
        kDefault = 0, kExternal = 1, kPolyline = 2, kDerived = 4, kTextbox = 8, kOutermost = 0x10,
        kNotClosed = 0x20, kSelfIntersecting = 0x40, kTextIsland = 0x80, kDuplicate = 0x100,
    };
    enum HatchEdgeType { kLine = 1, kCirArc = 2, kEllArc = 3, kSpline = 4 };
    enum HatchPatternType { kUserDefined = 0, kPreDefined = 1, kCustomDefined = 2 };
    enum HatchStyle { kNormal = 0, kOuter = 1, kIgnore = 2 };

    double elevation() const { return m_d.elevation.z; }
    Acad::ErrorStatus setElevation(double e) { m_d.elevation.z = e; return Acad::eOk; }
    AcGeVector3d normal() const { return m_d.normal; }
    Acad::ErrorStatus setNormal(const AcGeVector3d& n);
    bool associative() const { return m_d.associative != 0; }
    Acad::ErrorStatus setAssociative(bool on) { m_d.associative = on ? 1 : 0; return Acad::eOk; }
    bool isSolidFill() const { return m_d.solid != 0; }

    // Loops. A polyline loop holds vertices and bulges (a closing vertex
    // repeats the first when it was given so); other loops hold edges.
    int numLoops() const { return static_cast<int>(m_d.loops.size()); }
    int32_t loopTypeAt(int index) const;
    Acad::ErrorStatus getLoopAt(int index, int32_t& loopType, AcGePoint2dArray& vertices,
                                AcGeDoubleArray& bulges) const;
    Acad::ErrorStatus appendLoop(int32_t loopType, const AcGePoint2dArray& vertices, const AcGeDoubleArray& bulges);
    // A loop from entities (lines, arcs, circles, polylines) of the drawing.
    Acad::ErrorStatus appendLoop(int32_t loopType, const AcDbObjectIdArray& ids);
    Acad::ErrorStatus insertLoopAt(int index, int32_t loopType, const AcGePoint2dArray& vertices,
                                   const AcGeDoubleArray& bulges);
    Acad::ErrorStatus removeLoopAt(int index);
    Acad::ErrorStatus getAssocObjIdsAt(int loopIndex, AcDbObjectIdArray& ids) const;
    Acad::ErrorStatus getAssocObjIds(AcDbObjectIdArray& ids) const;
    Acad::ErrorStatus removeAssocObjIds();

    // Pattern.
    HatchPatternType patternType() const { return static_cast<HatchPatternType>(m_d.patternType); }
    const char* patternName() const { return m_d.name.c_str(); }
    // A predefined pattern's lines come from the pattern file found on the
    // support path, or from the host's own few; "SOLID" fills.
    Acad::ErrorStatus setPattern(HatchPatternType type, const char* name);
    double patternAngle() const { return m_d.angle; }
    Acad::ErrorStatus setPatternAngle(double angle);
    double patternScale() const { return m_d.scale; }
    Acad::ErrorStatus setPatternScale(double scale);
    double patternSpace() const { return m_d.space; }
    Acad::ErrorStatus setPatternSpace(double space);
    bool patternDouble() const { return m_d.isDouble != 0; }
    Acad::ErrorStatus setPatternDouble(bool on);
    int numPatternDefinitions() const { return static_cast<int>(m_d.lines.size()); }
    Acad::ErrorStatus getPatternDefinitionAt(int index, double& angle, double& baseX, double& baseY,
                                             double& offsetX, double& offsetY, AcGeDoubleArray& dashes) const;
    HatchStyle hatchStyle() const { return static_cast<HatchStyle>(m_d.style); }
    Acad::ErrorStatus setHatchStyle(HatchStyle style);

    int numSeedPoints() const { return static_cast<int>(m_d.seeds.size()); }
    const AcGePoint2d& getSeedPointAt(int index) const;
    Acad::ErrorStatus appendSeedPoint(const AcGePoint2d& p);
    Acad::ErrorStatus removeSeedPointAt(int index);

    // The pattern lines clipped by the loops (even-odd), in the hatch's plane.
    Acad::ErrorStatus evaluateHatch(bool underEstimateNumLines = false);
    int numHatchLines() const { return static_cast<int>(m_lines.size() / 2); }
    Acad::ErrorStatus getHatchLineDataAt(int index, AcGePoint2d& start, AcGePoint2d& end) const;
    Acad::ErrorStatus getHatchLinesData(AcGePoint2dArray& starts, AcGePoint2dArray& ends) const;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;

    // Members.
    struct Edge {
        int16_t type = kLine;
        AcGePoint2d a, b;          // line ends; arc or ellipse centre and (ellipse) major axis end
        double radius = 0;         // arc radius, ellipse minor/major ratio
        double start = 0, end = 0; // arc angles in degrees as files give them; ellipse too
        int16_t ccw = 1;
        int16_t degree = 3, rational = 0, periodic = 0;
        std::vector<double> knots;
        std::vector<AcGePoint2d> controlPoints;
        std::vector<double> weights;
        std::vector<AcGePoint2d> fitPoints;
        AcGeVector2d startTangent, endTangent;
    };
    struct Loop {
        int32_t type = 0;
        int16_t hasBulge = 0, closed = 1;
        std::vector<AcGePoint2d> vertices;
        std::vector<double> bulges;
        std::vector<Edge> edges;
        std::vector<AcDbStub*> sources;
    };
    struct PatternLine {
        double angle = 0;          // degrees, as files give them
        double base[2] = {0, 0};
        double offset[2] = {0, 0};
        std::vector<double> dashes;
    };
    struct Data {
        AcGePoint3d elevation;
        AcGeVector3d normal{0, 0, 1};
        std::string name = "SOLID";
        int16_t solid = 1;
        int16_t associative = 0;
        std::vector<Loop> loops;
        int16_t style = 0;
        int16_t patternType = 1;
        double angle = 0;          // radians
        double scale = 1;
        double space = 1;
        int16_t isDouble = 0;
        std::vector<PatternLine> lines;
        double pixelSize = 0;
        std::vector<AcGePoint2d> seeds;
    };
    Data& data() { return m_d; }
    const Data& data() const { return m_d; }
    const lumo::db::Record& dxfRecord() const override;
    void* dxfData(int level) override;

private:
    Data m_d;
    std::vector<AcGePoint2d> m_lines;   // computed: start, end, start, end ...
};
