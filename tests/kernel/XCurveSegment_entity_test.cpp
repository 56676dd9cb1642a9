// Curve segments from and to the drawing's curves.
#include <cmath>
#include <numbers>
#include <string>

#include <gtest/gtest.h>

#include "kernel/XCurveSegment.h"
#include "kernel/XCurveSegment_entity.h"
#include "platform/acutads.h"
#include "platform/dbents.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(XCurveSegmentEntity, LinesArcsAndCircles) {
    XCurveSegment s(0);
    AcDbLine line(AcGePoint3d(1, 2, 3), AcGePoint3d(4, 6, 3));
    ASSERT_EQ(ReadCurveEntity(&line, 0, s), RTNORM);
    EXPECT_EQ(s.end.y, 6);
    EXPECT_EQ(s.angle, 0);
    EXPECT_EQ(s.bounded, 0);
    AcDbArc arc(AcGePoint3d(0, 0, 0), 2, 0, kPi / 2);
    ASSERT_EQ(ReadCurveEntity(&arc, 0, s), RTNORM);
    EXPECT_EQ(s.bounded, 1);
    EXPECT_NEAR(s.angle, kPi / 2, 1e-15);
    EXPECT_NEAR(s.end.y, 2, 1e-12);
    AcDbCircle circle(AcGePoint3d(1, 1, 0), AcGeVector3d::kZAxis, 3);
    ASSERT_EQ(ReadCurveEntity(&circle, 0, s), RTNORM);
    EXPECT_EQ(s.bounded, 0);
    EXPECT_EQ(s.GetCurveType(), CurveCircle);
    EXPECT_EQ(s.start.x, 4);
    AcDbPoint point;
    EXPECT_EQ(ReadCurveEntity(&point, 1, s), RTERROR);
    EXPECT_EQ(s.Length(), 0);
}

TEST(XCurveSegmentEntity, BackToCurves) {
    AcDbCurve* c = AsAcDbCurve(XCurveSegment(XPoint(0, 0, 0), XPoint(3, 4, 0), 0, 1));
    ASSERT_NE(AcDbLine::cast(c), nullptr);
    EXPECT_EQ(AcDbLine::cast(c)->endPoint().y, 4);
    delete c;
    c = AsAcDbCurve(XCurveSegment(XPoint(1, 0, 0), XPoint(0, 1, 0), -3 * kPi / 2, 1));
    AcDbArc* arc = AcDbArc::cast(c);
    ASSERT_NE(arc, nullptr);
    EXPECT_NEAR(arc->radius(), 1, 1e-12);
    EXPECT_NEAR(arc->startAngle(), kPi / 2, 1e-12);   // the clockwise run stored counter-clockwise
    delete c;
    EXPECT_EQ(AsAcDbCurve(XCurveSegment(XPoint(1, 0, 0), XPoint(-1, 0, 0), 2 * kPi, 1)), nullptr);
}

TEST(XCurveSegmentEntity, MaskSelectsTheThreeKinds) {
    resbuf* mask = CurveMask(nullptr);
    std::string seen;
    for (resbuf* r = mask; r; r = r->rbnext) {
        int code = r->restype == RTDXF0 ? 0 : r->restype;
        seen += std::to_string(code) + ":" + r->resval.rstring + " ";
    }
    EXPECT_EQ(seen, "-4:<or 0:LINE 0:ARC 0:CIRCLE -4:or> 8:* ");
    acutRelRb(mask);
    mask = CurveMask("WALL");
    resbuf* last = mask;
    while (last && last->rbnext) last = last->rbnext;
    ASSERT_NE(last, nullptr);
    EXPECT_STREQ(last->resval.rstring, "WALL");
    acutRelRb(mask);
}
}  // namespace
