// Points, curves and polylines made as entities of the working drawing and
// read back from them.
#include <cmath>
#include <cstring>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "kernel/PointList.h"
#include "kernel/XArc.h"
#include "kernel/XCurveSegment.h"
#include "kernel/XLine.h"
#include "kernel/XPoly.h"
#include "kernel/XPoly2D.h"
#include "kernel/XRectAngle.h"
#include "kernel/matrix_routines.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
constexpr double kPi = std::numbers::pi;

// The list of the newest entity, released with the object.
class LastEntity {
public:
    LastEntity() {
        if (acdbEntLast(name) == RTNORM) list = acdbEntGet(name);
    }
    ~LastEntity() { acutRelRb(list); }
    LastEntity(const LastEntity&) = delete;
    LastEntity& operator=(const LastEntity&) = delete;

    const resbuf* Group(int code) const {
        for (const resbuf* g = list; g; g = g->rbnext)
            if (g->restype == code) return g;
        return nullptr;
    }
    std::string Text(int code) const {
        const resbuf* g = Group(code);
        return g && g->resval.rstring ? g->resval.rstring : "";
    }
    XPoint Point(int code) const {
        const resbuf* g = Group(code);
        return g ? XPoint(g->resval.rpoint) : XPoint(-999, -999, -999);
    }
    double Real(int code) const {
        const resbuf* g = Group(code);
        return g ? g->resval.rreal : -999;
    }

    ads_name name = {0, 0};
    resbuf* list = nullptr;
};

void ExpectPoint(const XPoint& got, const XPoint& want) {
    EXPECT_NEAR(got.x, want.x, 1e-9);
    EXPECT_NEAR(got.y, want.y, 1e-9);
    EXPECT_NEAR(got.z, want.z, 1e-9);
}

TEST(DrawingHooks, PointsOnTheCurrentOrAGivenLayer) {
    XPoint p(1, 2, 3);
    ASSERT_EQ(p.Make(nullptr), RTNORM);
    LastEntity e;
    EXPECT_EQ(e.Text(0), "POINT");
    EXPECT_EQ(e.Text(8), "0");
    ExpectPoint(e.Point(10), p);
    ASSERT_EQ(XPoint(4, 5, 6).Modify(e.name), RTNORM);
    LastEntity moved;
    ExpectPoint(moved.Point(10), XPoint(4, 5, 6));
    ASSERT_EQ(XPoint(7, 8, 9).MakeLike(e.name), RTNORM);
    LastEntity copy;
    EXPECT_NE(copy.name[0], e.name[0]);
    EXPECT_EQ(copy.Text(0), "POINT");
    ExpectPoint(copy.Point(10), XPoint(7, 8, 9));
}

TEST(DrawingHooks, LinesMakeModifyAndReadBack) {
    XLine line(XPoint(0, 0, 0), XPoint(10, 5, 0), 1);
    ASSERT_EQ(line.Make("HD_LINES"), RTNORM);
    LastEntity e;
    EXPECT_EQ(e.Text(0), "LINE");
    EXPECT_EQ(e.Text(8), "HD_LINES");
    ExpectPoint(e.Point(11), XPoint(10, 5, 0));

    XLine back(e.name, 1, nullptr);
    EXPECT_EQ(back.bounded, 0);   // the flag is not taken from the argument
    ExpectPoint(back.start, line.start);
    ExpectPoint(back.end, line.end);
    double m[4][4];
    AT_InitTranMat(m, 1, 2, 3);
    XLine moved(e.name, 0, m);
    ExpectPoint(moved.end, XPoint(11, 7, 3));

    ASSERT_EQ(XLine(XPoint(1, 1, 0), XPoint(2, 2, 0), 1).Modify(e.name), RTNORM);
    ExpectPoint(XLine(e.name, 0, nullptr).end, XPoint(2, 2, 0));
    ASSERT_EQ(XLine(XPoint(), XPoint(0, 9, 0), 1).MakeLike(e.name), RTNORM);
    LastEntity copy;
    EXPECT_EQ(copy.Text(8), "HD_LINES");   // the layer comes from the model
    ExpectPoint(copy.Point(11), XPoint(0, 9, 0));

    // Modify insists on a LINE; a circle's name reads as no line at all.
    ASSERT_EQ(XCircle(XPoint(), 2.0).Make(nullptr), RTNORM);
    LastEntity circle;
    EXPECT_EQ(line.Modify(circle.name), RTERROR);
    XLine none(circle.name, 0, nullptr);
    EXPECT_TRUE(!none);
}

TEST(DrawingHooks, CirclesArcsAndSectors) {
    ASSERT_EQ(XCircle(XPoint(1, 1, 0), 2.0).Make("HD_ARCS"), RTNORM);
    LastEntity c;
    EXPECT_EQ(c.Text(0), "CIRCLE");
    EXPECT_DOUBLE_EQ(c.Real(40), 2.0);
    double scale[4][4];
    XPoint(0, 0, 0).GetScaleMatrix(3.0, scale);
    XCircle big(c.name, scale);
    EXPECT_NEAR(big.radius, 6.0, 1e-9);
    ExpectPoint(big.center, XPoint(3, 3, 0));
    XSector whole(c.name);   // not an arc: the whole turn
    EXPECT_EQ(whole.startAngle, 0.0);
    EXPECT_NEAR(whole.endAngle, 2 * kPi, 1e-15);

    XArc arc(XPoint(0, 0, 0), 5.0, 0.5, 2.0);
    ASSERT_EQ(arc.Make(nullptr), RTNORM);
    LastEntity a;
    EXPECT_EQ(a.Text(0), "ARC");
    XArc back(a.name);
    EXPECT_TRUE(back == arc);
    double mirror[4][4];
    AT_InitIdenMat(mirror);
    mirror[0][0] = -1;   // about the Y axis: the arc's direction turns
    XArc flipped(a.name, mirror);
    EXPECT_NEAR(flipped.startAngle, kPi - 0.5, 1e-9);
    EXPECT_NEAR(flipped.endAngle, kPi - 2.0, 1e-9);
    XArc other(XPoint(0, 0, 0), 4.0, 1.0, 3.0);
    ASSERT_EQ(other.Modify(a.name), RTNORM);
    EXPECT_TRUE(XArc(a.name) == other);
    ASSERT_EQ(arc.MakeLike(c.name), RTNORM);   // a circle's list takes the arc's groups
    LastEntity copy;
    EXPECT_EQ(copy.Text(8), "HD_ARCS");
    EXPECT_DOUBLE_EQ(copy.Real(50), 0.5);
}

TEST(DrawingHooks, SegmentsByKindAndTheArrow) {
    XCurveSegment line(XPoint(0, 0, 0), XPoint(4, 0, 0), 0.0, 1);
    ASSERT_EQ(line.Make(nullptr), RTNORM);
    EXPECT_EQ(LastEntity().Text(0), "LINE");
    XCurveSegment arc(XPoint(1, 0, 0), XPoint(0, 1, 0), kPi / 2, 1);
    ASSERT_EQ(arc.Make(nullptr), RTNORM);
    EXPECT_EQ(LastEntity().Text(0), "ARC");
    XCurveSegment circle(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1);
    ASSERT_EQ(circle.Make(nullptr), RTNORM);
    {
        LastEntity e;
        EXPECT_EQ(e.Text(0), "CIRCLE");
        XCurveSegment back(e.name, 0);
        EXPECT_TRUE(back == circle);
        EXPECT_EQ(back.bounded, 0);
    }
    // Just below a whole turn the strict circle test fails: nothing is made.
    XCurveSegment neither(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi - 2e-5, 1);
    neither.angle = 2 * kPi + 1e-3;
    EXPECT_EQ(neither.Make(nullptr), RTERROR);

    ads_name arrow;
    ASSERT_EQ(line.MakeArrow(arrow), RTNORM);
    LastEntity s;
    EXPECT_EQ(s.Text(0), "SOLID");
    ExpectPoint(s.Point(10), XPoint(-498, 100, 0));
    ExpectPoint(s.Point(11), XPoint(-498, -100, 0));
    ExpectPoint(s.Point(12), XPoint(502, 0, 0));
    ExpectPoint(s.Point(13), XPoint(502, 0, 0));
    EXPECT_EQ(arrow[0], s.name[0]);

    resbuf* mask = XCurveSegment::Mask(nullptr);
    ASSERT_NE(mask, nullptr);
    const resbuf* layer = mask;
    while (layer && layer->restype != 8) layer = layer->rbnext;
    ASSERT_NE(layer, nullptr);
    EXPECT_STREQ(layer->resval.rstring, "*");
    acutRelRb(mask);
    AcDbCurve* curve = arc.AsAcDbCurve();
    EXPECT_NE(curve, nullptr);
    delete curve;
    EXPECT_EQ(circle.AsAcDbCurve(), nullptr);
}

TEST(DrawingHooks, LightweightPolylineRoundTripWithBulges) {
    XPoly2D p(1);
    p.AppendNode(XPoint(0, 0, 2), kPi);        // bulge 1
    p.AppendNode(XPoint(4, 0, 2), 0.0);
    p.AppendNode(XPoint(4, 3, 2), -kPi / 3);   // clockwise
    ASSERT_EQ(p.Make("HD_PLINES"), RTNORM);
    LastEntity e;
    EXPECT_EQ(e.Text(0), "LWPOLYLINE");
    EXPECT_EQ(e.Text(8), "HD_PLINES");
    EXPECT_DOUBLE_EQ(e.Real(38), 2.0);
    XPoly2D back(e.name);
    ASSERT_EQ(back.Count(), 3);
    EXPECT_EQ(back.IsClosed(), 1);
    for (int i = 0; i < 3; ++i) {
        ExpectPoint(*back.Vertex(i), *p.Vertex(i));
        EXPECT_NEAR(back.Angle(i), p.Angle(i), 1e-12) << i;
    }
    EXPECT_NEAR(back.Area(), p.Area(), 1e-9);
    XPoly corners(e.name);
    ASSERT_EQ(corners.Count(), 3);
    EXPECT_EQ(corners.GetAt(2)->z, 2.0);
    XPoly2D one(0);
    one.AppendNode(XPoint(), 0);
    EXPECT_EQ(one.Make(nullptr), RTERROR);
}

TEST(DrawingHooks, OldPolylineWithBulgesAndFaceRecords) {
    const double origin[3] = {0, 0, 0};
    resbuf* head = acutBuildList(RTDXF0, "POLYLINE", 66, 1, 70, 1, 10, origin, 0);
    ASSERT_EQ(acdbEntMake(head), RTNORM);
    acutRelRb(head);
    const double bulges[3] = {0.5, 0.0, -1.0};
    const XPoint at[3] = {XPoint(0, 0, 0), XPoint(6, 0, 0), XPoint(6, 4, 0)};
    for (int i = 0; i < 3; ++i) {
        resbuf* v = acutBuildList(RTDXF0, "VERTEX", 10, &at[i].x, 42, bulges[i], 0);
        ASSERT_EQ(acdbEntMake(v), RTNORM);
        acutRelRb(v);
    }
    resbuf* end = acutBuildList(RTDXF0, "SEQEND", 0);
    ASSERT_EQ(acdbEntMake(end), RTNORM);
    acutRelRb(end);
    ads_name pl;
    ASSERT_EQ(acdbEntLast(pl), RTNORM);
    XPoly2D back(pl);
    ASSERT_EQ(back.Count(), 3);
    EXPECT_EQ(back.IsClosed(), 1);
    EXPECT_NEAR(back.Angle(0), 4 * std::atan(0.5), 1e-12);
    EXPECT_EQ(back.Angle(1), 0.0);
    EXPECT_NEAR(back.Angle(2), -kPi, 1e-12);
    XPoly corners(pl);
    EXPECT_EQ(corners.Count(), 3);
}

TEST(DrawingHooks, RectanglesAsLinesOrAPolyline) {
    XRectAngle r(XPoint(0, 0, 1), XPoint(4, 2, 1));
    r.Make("HD_RECT", 1);
    LastEntity last;
    EXPECT_EQ(last.Text(0), "LINE");
    ExpectPoint(last.Point(10), XPoint(0, 2, 1));
    ExpectPoint(last.Point(11), XPoint(0, 0, 1));
    r.Make("HD_RECT", 0);
    LastEntity pl;
    EXPECT_EQ(pl.Text(0), "LWPOLYLINE");
    EXPECT_EQ(pl.Text(8), "HD_RECT");
    XPoly2D back(pl.name);
    EXPECT_EQ(back.IsClosed(), 1);
    EXPECT_NEAR(back.Area(), 8.0, 1e-12);

    // The polyline goes to the space in use, as the lines do.
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    db->setTilemode(false);
    r.Make("HD_RECT", 0);
    ads_name e;
    ASSERT_EQ(acdbEntLast(e), RTNORM);
    r.Make("HD_RECT", 1);
    db->setTilemode(true);
    int inPaper = 0;
    for (int k = 0; k < 5; ++k) {   // the polyline, then four lines
        resbuf* list = acdbEntGet(e);
        for (const resbuf* g = list; g; g = g->rbnext)
            if (g->restype == 67 && g->resval.rint == 1) ++inPaper;
        acutRelRb(list);
        if (k < 4) {
            ASSERT_EQ(acdbEntNext(e, e), RTNORM);
        }
    }
    EXPECT_EQ(inPaper, 5);
}

TEST(DrawingHooks, PointListUpdateCutsTheEntity) {
    XLine line(XPoint(0, 0, 0), XPoint(10, 0, 0), 1);
    ASSERT_EQ(line.Make("HD_CUT"), RTNORM);
    LastEntity e;
    PointList cuts(line.start, line.end, 0.0);
    ASSERT_EQ(cuts.Insert(XPoint(4, 0, 0), 0), RTNORM);
    ASSERT_EQ(cuts.Insert(XPoint(7, 0, 0), 0), RTNORM);
    ASSERT_EQ(cuts.Update(e.name), RTNORM);
    XLine first(e.name, 0, nullptr);
    ExpectPoint(first.end, XPoint(4, 0, 0));
    LastEntity piece;
    EXPECT_EQ(piece.Text(8), "HD_CUT");
    ExpectPoint(piece.Point(10), XPoint(7, 0, 0));
    ExpectPoint(piece.Point(11), XPoint(10, 0, 0));

    // A circle becomes arcs and goes.
    ASSERT_EQ(XCircle(XPoint(), 5.0).Make("HD_CUT"), RTNORM);
    LastEntity circle;
    PointList around(XPoint(5, 0, 0), XPoint(-5, 0, 0), 2 * kPi);
    ASSERT_EQ(around.Insert(XPoint(0, 5, 0), 0), RTNORM);
    ASSERT_EQ(around.Update(circle.name), RTNORM);
    EXPECT_EQ(acdbEntGet(circle.name), nullptr);
    LastEntity arc;
    EXPECT_EQ(arc.Text(0), "ARC");
    EXPECT_NEAR(arc.Real(50), kPi / 2, 1e-9);
    EXPECT_NEAR(arc.Real(51), 0.0, 1e-9);
}
}  // namespace
