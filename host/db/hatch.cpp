// HATCH: its record (boundary loops, pattern lines and the points picked
// inside repeat, so hooks read and write them) and its loop and point calls.
#include <algorithm>
#include <cmath>

#include "host/db/stub.h"
#include "host/db/entity_fields.h"
#include "host/db/ocs.h"
#include "platform/dbents.h"
#include "platform/dbhatch.h"

ACRX_DEFINE_MEMBERS(AcDbHatch, AcDbEntity)

using namespace lumo::db;

namespace {
using Hatch = AcDbHatch::Data;
using Loop = AcDbHatch::Loop;
using Edge = AcDbHatch::Edge;
enum Slot { kLoops, kPattern, kSeeds };
constexpr double kDegreesPerRadian = 57.29577951308232;

Hatch& DataOf(AcDbObject& o) { return static_cast<AcDbHatch&>(o).data(); }
const Hatch& DataOf(const AcDbObject& o) { return static_cast<const AcDbHatch&>(o).data(); }

// Takes the next group if it has the code.
const Tag* Take(TagCursor& in, int code) {
    const Tag* t = in.PeekIf(code);
    if (t) in.Next();
    return t;
}
double TakeReal(TagCursor& in, int code, double def = 0) {
    const Tag* t = Take(in, code);
    return t ? t->v[0] : def;
}
int64_t TakeInt(TagCursor& in, int code, int64_t def = 0) {
    const Tag* t = Take(in, code);
    return t ? t->i : def;
}
AcGePoint2d TakePoint(TagCursor& in, int code) {
    const Tag* t = Take(in, code);
    return t ? AcGePoint2d(t->v[0], t->v[1]) : AcGePoint2d();
}
// Counts in files are trusted only as far as the groups go.
size_t Bounded(int64_t n) { return static_cast<size_t>(std::clamp<int64_t>(n, 0, 1 << 20)); }

void ReadSplineEdge(Edge& e, TagCursor& in) {
    e.degree = static_cast<int16_t>(TakeInt(in, 94, 3));
    e.rational = static_cast<int16_t>(TakeInt(in, 73));
    e.periodic = static_cast<int16_t>(TakeInt(in, 74));
    size_t knots = Bounded(TakeInt(in, 95));
    size_t cps = Bounded(TakeInt(in, 96));
    for (size_t k = 0; k < knots && in.PeekIf(40); ++k) e.knots.push_back(TakeReal(in, 40));
    for (size_t k = 0; k < cps && in.PeekIf(10); ++k) e.controlPoints.push_back(TakePoint(in, 10));
    while (in.PeekIf(42)) e.weights.push_back(TakeReal(in, 42));
    // Fit data (later versions): a 97 followed by fit points or tangents.
    if (in.PeekIf(97)) {
        size_t at = in.Pos();
        in.Next();
        if (in.PeekIf(11) || in.PeekIf(12) || in.PeekIf(13)) {
            while (in.PeekIf(11)) e.fitPoints.push_back(TakePoint(in, 11));
            if (const Tag* t = Take(in, 12)) e.startTangent.set(t->v[0], t->v[1]);
            if (const Tag* t = Take(in, 13)) e.endTangent.set(t->v[0], t->v[1]);
        } else {
            in.Seek(at);
        }
    }
}

bool ReadLoop(Loop& loop, TagCursor& in) {
    const Tag* type = Take(in, 92);
    if (!type) return false;
    loop.type = static_cast<int32_t>(type->i);
    if (loop.type & AcDbHatch::kPolyline) {
        loop.hasBulge = static_cast<int16_t>(TakeInt(in, 72));
        loop.closed = static_cast<int16_t>(TakeInt(in, 73, 1));
        size_t n = Bounded(TakeInt(in, 93));
        for (size_t k = 0; k < n && in.PeekIf(10); ++k) {
            loop.vertices.push_back(TakePoint(in, 10));
            loop.bulges.push_back(TakeReal(in, 42));
        }
    } else {
        size_t n = Bounded(TakeInt(in, 93));
        for (size_t k = 0; k < n && in.PeekIf(72); ++k) {
            Edge e;
            e.type = static_cast<int16_t>(TakeInt(in, 72));
            switch (e.type) {
            case AcDbHatch::kLine:
                e.a = TakePoint(in, 10);
                e.b = TakePoint(in, 11);
                break;
            case AcDbHatch::kCirArc:
                e.a = TakePoint(in, 10);
                e.radius = TakeReal(in, 40);
                e.start = TakeReal(in, 50);
                e.end = TakeReal(in, 51);
                e.ccw = static_cast<int16_t>(TakeInt(in, 73, 1));
                break;
            case AcDbHatch::kEllArc:
                e.a = TakePoint(in, 10);
                e.b = TakePoint(in, 11);
                e.radius = TakeReal(in, 40);
                e.start = TakeReal(in, 50);
                e.end = TakeReal(in, 51);
                e.ccw = static_cast<int16_t>(TakeInt(in, 73, 1));
                break;
            case AcDbHatch::kSpline: ReadSplineEdge(e, in); break;
            default: return false;
            }
            loop.edges.push_back(std::move(e));
        }
    }
    size_t sources = Bounded(TakeInt(in, 97));
    for (size_t k = 0; k < sources && in.PeekIf(330); ++k)
        if (AcDbStub* s = Take(in, 330)->ref) loop.sources.push_back(s);
    return true;
}

void WritePoint(TagSink& out, int code, const AcGePoint2d& p) {
    double v[2] = {p.x, p.y};
    out.Point(code, v, 2);
}

void WriteEdge(const Edge& e, TagSink& out) {
    out.Int(72, e.type);
    switch (e.type) {
    case AcDbHatch::kLine:
        WritePoint(out, 10, e.a);
        WritePoint(out, 11, e.b);
        break;
    case AcDbHatch::kCirArc:
    case AcDbHatch::kEllArc:
        WritePoint(out, 10, e.a);
        if (e.type == AcDbHatch::kEllArc) WritePoint(out, 11, e.b);
        out.Real(40, e.radius);
        out.Real(50, e.start);
        out.Real(51, e.end);
        out.Int(73, e.ccw);
        break;
    case AcDbHatch::kSpline:
        out.Int(94, e.degree);
        out.Int(73, e.rational);
        out.Int(74, e.periodic);
        out.Int(95, static_cast<int64_t>(e.knots.size()));
        out.Int(96, static_cast<int64_t>(e.controlPoints.size()));
        for (double k : e.knots) out.Real(40, k);
        for (const auto& p : e.controlPoints) WritePoint(out, 10, p);
        for (double w : e.weights) out.Real(42, w);
        if (!e.fitPoints.empty()) {
            out.Int(97, static_cast<int64_t>(e.fitPoints.size()));
            for (const auto& p : e.fitPoints) WritePoint(out, 11, p);
            WritePoint(out, 12, AcGePoint2d(e.startTangent.x, e.startTangent.y));
            WritePoint(out, 13, AcGePoint2d(e.endTangent.x, e.endTangent.y));
        }
        break;
    default: break;
    }
}

void WriteLoops(const Hatch& d, TagSink& out) {
    out.Int(91, static_cast<int64_t>(d.loops.size()));
    for (const Loop& loop : d.loops) {
        out.Int(92, loop.type);
        if (loop.type & AcDbHatch::kPolyline) {
            out.Int(72, loop.hasBulge);
            out.Int(73, loop.closed);
            out.Int(93, static_cast<int64_t>(loop.vertices.size()));
            for (size_t k = 0; k < loop.vertices.size(); ++k) {
                WritePoint(out, 10, loop.vertices[k]);
                if (loop.hasBulge) out.Real(42, k < loop.bulges.size() ? loop.bulges[k] : 0.0);
            }
        } else {
            out.Int(93, static_cast<int64_t>(loop.edges.size()));
            for (const Edge& e : loop.edges) WriteEdge(e, out);
        }
        out.Int(97, static_cast<int64_t>(loop.sources.size()));
        for (AcDbStub* s : loop.sources) out.Ref(330, s);
    }
}

bool ReadHatch(AcDbObject& obj, int slot, TagCursor& in, ReadContext&) {
    Hatch& d = DataOf(obj);
    if (slot == kLoops) {
        size_t n = Bounded(in.Next().i);
        for (size_t k = 0; k < n && in.PeekIf(92); ++k) {
            d.loops.emplace_back();
            if (!ReadLoop(d.loops.back(), in)) return false;
        }
        return true;
    }
    if (slot == kSeeds) {
        size_t n = Bounded(in.Next().i);
        for (size_t k = 0; k < n && in.PeekIf(10); ++k) d.seeds.push_back(TakePoint(in, 10));
        return true;
    }
    const Tag& t = in.Next();
    switch (t.code) {
    case 52: d.angle = RadiansFromDegrees(t.v[0]); break;
    case 41: d.scale = t.v[0]; break;
    case 77: d.isDouble = static_cast<int16_t>(t.i); break;
    case 78: {
        size_t n = Bounded(t.i);
        for (size_t k = 0; k < n && in.PeekIf(53); ++k) {
            AcDbHatch::PatternLine line;
            line.angle = TakeReal(in, 53);
            line.base[0] = TakeReal(in, 43);
            line.base[1] = TakeReal(in, 44);
            line.offset[0] = TakeReal(in, 45);
            line.offset[1] = TakeReal(in, 46);
            size_t dashes = Bounded(TakeInt(in, 79));
            for (size_t j = 0; j < dashes && in.PeekIf(49); ++j) line.dashes.push_back(TakeReal(in, 49));
            d.lines.push_back(std::move(line));
        }
        break;
    }
    default: break;
    }
    return true;
}

void WriteHatch(const AcDbObject& obj, int slot, int code, TagSink& out) {
    const Hatch& d = DataOf(obj);
    if (slot == kLoops) return WriteLoops(d, out);
    if (slot == kSeeds) {
        out.Int(98, static_cast<int64_t>(d.seeds.size()));
        for (const auto& p : d.seeds) WritePoint(out, 10, p);
        return;
    }
    if (code != 52 || d.solid) return;   // the pattern goes out once, and not for a fill
    out.Real(52, DegreesFromRadians(d.angle));
    out.Real(41, d.scale);
    out.Int(77, d.isDouble);
    out.Int(78, static_cast<int64_t>(d.lines.size()));
    for (const auto& line : d.lines) {
        out.Real(53, line.angle);
        out.Real(43, line.base[0]);
        out.Real(44, line.base[1]);
        out.Real(45, line.offset[0]);
        out.Real(46, line.offset[1]);
        out.Int(79, static_cast<int64_t>(line.dashes.size()));
        for (double dash : line.dashes) out.Real(49, dash);
    }
}

void ClearHatch(AcDbObject& obj, int slot) {
    Hatch& d = DataOf(obj);
    if (slot == kLoops) d.loops.clear();
    if (slot == kSeeds) d.seeds.clear();
    if (slot == kPattern) d.lines.clear();
}

constexpr CustomIO kHatchIO{ReadHatch, WriteHatch, ClearHatch};
constexpr Field kHatchFields[] = {
    FPoint(10, offsetof(Hatch, elevation), 0, 0, 0, kAlways),
    FPoint(210, offsetof(Hatch, normal), 0, 0, 1, kAlways),
    FText(2, offsetof(Hatch, name), "SOLID", kAlways),
    FInt16(70, offsetof(Hatch, solid), 1, kAlways),
    FInt16(71, offsetof(Hatch, associative), 0, kAlways),
    FCustom(91, kLoops),
    FInt16(75, offsetof(Hatch, style), 0, kAlways),
    FInt16(76, offsetof(Hatch, patternType), 1, kAlways),
    FCustom(52, kPattern),
    FCustom(41, kPattern),
    FCustom(77, kPattern),
    FCustom(78, kPattern),
    FReal(47, offsetof(Hatch, pixelSize)),
    FCustom(98, kSeeds),
};
constexpr Section kHatchSections[] = {kEntitySection, MakeSection("AcDbHatch", kHatchFields)};
constexpr Record kHatchRecord = MakeRecord("HATCH", nullptr, kHatchSections, &kHatchIO);
}  // namespace

AcDbHatch::AcDbHatch() = default;
const Record& AcDbHatch::dxfRecord() const { return kHatchRecord; }
void* AcDbHatch::dxfData(int level) { return level == 1 ? &m_d : AcDbEntity::dxfData(level); }

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& n) {
    if (n.isZeroLength()) return Acad::eInvalidInput;
    m_d.normal = n.normal();
    return Acad::eOk;
}

int32_t AcDbHatch::loopTypeAt(int index) const {
    return index >= 0 && index < numLoops() ? m_d.loops[static_cast<size_t>(index)].type : 0;
}

Acad::ErrorStatus AcDbHatch::getLoopAt(int index, int32_t& loopType, AcGePoint2dArray& vertices,
                                       AcGeDoubleArray& bulges) const {
    if (index < 0 || index >= numLoops()) return Acad::eInvalidIndex;
    const Loop& loop = m_d.loops[static_cast<size_t>(index)];
    loopType = loop.type;
    vertices.setLogicalLength(0);
    bulges.setLogicalLength(0);
    if (loop.type & kPolyline) {
        for (size_t k = 0; k < loop.vertices.size(); ++k) {
            vertices.append(loop.vertices[k]);
            bulges.append(k < loop.bulges.size() ? loop.bulges[k] : 0.0);
        }
        return Acad::eOk;
    }
    // Lines and circular arcs chain into vertices and bulges; other edges can't.
    for (const Edge& e : loop.edges) {
        if (e.type == kLine) {
            vertices.append(e.a);
            bulges.append(0.0);
        } else if (e.type == kCirArc) {
            // A clockwise edge gives its angles mirrored.
            double s0 = e.start / kDegreesPerRadian, t0 = e.end / kDegreesPerRadian;
            double sweep = std::fmod(t0 - s0, 2 * M_PI);
            if (sweep <= 0) sweep += 2 * M_PI;
            double a0 = e.ccw ? s0 : -s0;
            vertices.append(AcGePoint2d(e.a.x + e.radius * std::cos(a0), e.a.y + e.radius * std::sin(a0)));
            bulges.append(std::tan((e.ccw ? sweep : -sweep) / 4));
        } else {
            return Acad::eNotApplicable;
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::insertLoopAt(int index, int32_t loopType, const AcGePoint2dArray& vertices,
                                          const AcGeDoubleArray& bulges) {
    if (index < 0 || index > numLoops()) return Acad::eInvalidIndex;
    if (vertices.length() < 2) return Acad::eInvalidInput;
    Loop loop;
    loop.type = loopType | kPolyline;
    for (int k = 0; k < vertices.length(); ++k) {
        loop.vertices.push_back(vertices[k]);
        double b = k < bulges.length() ? bulges[k] : 0.0;
        loop.bulges.push_back(b);
        if (b != 0) loop.hasBulge = 1;
    }
    m_d.loops.insert(m_d.loops.begin() + index, std::move(loop));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::appendLoop(int32_t loopType, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges) {
    return insertLoopAt(numLoops(), loopType, vertices, bulges);
}

Acad::ErrorStatus AcDbHatch::appendLoop(int32_t loopType, const AcDbObjectIdArray& ids) {
    Loop loop;
    loop.type = loopType;
    auto toPlane = [&](const AcGePoint3d& p) {
        AcGePoint3d q = WorldToOcs(m_d.normal, p);
        return AcGePoint2d(q.x, q.y);
    };
    for (int k = 0; k < ids.length(); ++k) {
        AcDbStub* s = ids[k];
        AcDbObject* obj = s ? s->object : nullptr;
        if (!obj) return Acad::eInvalidInput;
        if (auto* line = AcDbLine::cast(obj)) {
            Edge e;
            e.a = toPlane(line->startPoint());
            e.b = toPlane(line->endPoint());
            loop.edges.push_back(e);
        } else if (auto* arc = AcDbArc::cast(obj)) {
            Edge e;
            e.type = kCirArc;
            e.a = toPlane(OcsToWorld(arc->normal(), arc->center()));
            e.radius = arc->radius();
            e.start = arc->startAngle() * kDegreesPerRadian;
            e.end = arc->endAngle() * kDegreesPerRadian;
            loop.edges.push_back(e);
        } else if (auto* circle = AcDbCircle::cast(obj)) {
            Edge e;
            e.type = kCirArc;
            e.a = toPlane(OcsToWorld(circle->normal(), circle->center()));
            e.radius = circle->radius();
            e.end = 360.0;
            loop.edges.push_back(e);
        } else if (auto* pl = AcDbPolyline::cast(obj); pl && ids.length() == 1) {
            loop.type |= kPolyline;
            for (unsigned i = 0; i < pl->numVerts(); ++i) {
                AcGePoint3d p;
                double b = 0;
                pl->getPointAt(i, p);
                pl->getBulgeAt(i, b);
                loop.vertices.push_back(toPlane(p));
                loop.bulges.push_back(b);
                if (b != 0) loop.hasBulge = 1;
            }
        } else {
            return Acad::eInvalidInput;
        }
        if (m_d.associative) loop.sources.push_back(s);
    }
    if (loop.edges.empty() && loop.vertices.size() < 2) return Acad::eInvalidInput;
    m_d.loops.push_back(std::move(loop));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeLoopAt(int index) {
    if (index < 0 || index >= numLoops()) return Acad::eInvalidIndex;
    m_d.loops.erase(m_d.loops.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIdsAt(int loopIndex, AcDbObjectIdArray& ids) const {
    ids.setLogicalLength(0);
    if (loopIndex < 0 || loopIndex >= numLoops()) return Acad::eInvalidIndex;
    for (AcDbStub* s : m_d.loops[static_cast<size_t>(loopIndex)].sources) ids.append(AcDbObjectId(s));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getAssocObjIds(AcDbObjectIdArray& ids) const {
    ids.setLogicalLength(0);
    for (const Loop& loop : m_d.loops)
        for (AcDbStub* s : loop.sources) ids.append(AcDbObjectId(s));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeAssocObjIds() {
    for (Loop& loop : m_d.loops) loop.sources.clear();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style) {
    if (style < kNormal || style > kIgnore) return Acad::eInvalidInput;
    m_d.style = static_cast<int16_t>(style);
    return Acad::eOk;
}

const AcGePoint2d& AcDbHatch::getSeedPointAt(int index) const {
    static const AcGePoint2d kNone;
    return index >= 0 && index < numSeedPoints() ? m_d.seeds[static_cast<size_t>(index)] : kNone;
}

Acad::ErrorStatus AcDbHatch::appendSeedPoint(const AcGePoint2d& p) {
    m_d.seeds.push_back(p);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::removeSeedPointAt(int index) {
    if (index < 0 || index >= numSeedPoints()) return Acad::eInvalidIndex;
    m_d.seeds.erase(m_d.seeds.begin() + index);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getHatchLineDataAt(int index, AcGePoint2d& start, AcGePoint2d& end) const {
    if (index < 0 || index >= numHatchLines()) return Acad::eInvalidIndex;
    start = m_lines[static_cast<size_t>(index) * 2];
    end = m_lines[static_cast<size_t>(index) * 2 + 1];
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::getHatchLinesData(AcGePoint2dArray& starts, AcGePoint2dArray& ends) const {
    starts.setLogicalLength(0);
    ends.setLogicalLength(0);
    for (size_t k = 0; k + 1 < m_lines.size(); k += 2) {
        starts.append(m_lines[k]);
        ends.append(m_lines[k + 1]);
    }
    return Acad::eOk;
}
