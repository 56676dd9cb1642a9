// The host's geometry value types and its growable array.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "platform/acge.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(AcArray, LogicalAndPhysicalLengthsMoveApart) {
    AcArray<int> a;
    EXPECT_EQ(a.logicalLength(), 0);
    EXPECT_EQ(a.physicalLength(), 0);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_EQ(a.append(7), 0);
    EXPECT_EQ(a.append(8), 1);
    EXPECT_EQ(a.logicalLength(), 2);
    EXPECT_GE(a.physicalLength(), 2);
    a.setLogicalLength(0);
    EXPECT_TRUE(a.isEmpty());
    EXPECT_GE(a.physicalLength(), 2);
    // Growing the logical length again shows the old values.
    a.setLogicalLength(2);
    EXPECT_EQ(a[0], 7);
    EXPECT_EQ(a[1], 8);
}

TEST(AcArray, SetPhysicalLengthCutsTheLogicalOne) {
    AcArray<int> a(10);
    EXPECT_EQ(a.physicalLength(), 10);
    for (int i = 0; i < 6; ++i) a.append(i);
    a.setPhysicalLength(3);
    EXPECT_EQ(a.physicalLength(), 3);
    EXPECT_EQ(a.logicalLength(), 3);
    EXPECT_EQ(a.at(2), 2);
    a.setPhysicalLength(0);
    EXPECT_EQ(a.logicalLength(), 0);
    EXPECT_EQ(a.asArrayPtr(), nullptr);
}

TEST(AcArray, InsertRemoveFind) {
    AcArray<int> a;
    for (int i = 0; i < 5; ++i) a.append(i * 10);
    a.insertAt(0, -1).insertAt(6, 99).insertAt(3, 15);
    ASSERT_EQ(a.length(), 8);
    EXPECT_EQ(a.first(), -1);
    EXPECT_EQ(a.last(), 99);
    EXPECT_EQ(a[3], 15);
    EXPECT_EQ(a.find(15), 3);
    EXPECT_EQ(a.find(1234), -1);
    int at = -5;
    EXPECT_TRUE(a.find(20, at, 4));
    EXPECT_EQ(at, 4);
    EXPECT_FALSE(a.find(0, at, 2));
    EXPECT_TRUE(a.remove(15));
    EXPECT_FALSE(a.remove(15));
    a.removeAt(0).removeLast().removeFirst();
    ASSERT_EQ(a.length(), 4);
    EXPECT_EQ(a[0], 10);
    a.removeSubArray(1, 2);
    ASSERT_EQ(a.length(), 2);
    EXPECT_EQ(a[1], 40);
    a.reverse();
    EXPECT_EQ(a[0], 40);
    EXPECT_TRUE(a.contains(10));
}

TEST(AcArray, AppendingItselfAndGrowingThroughReallocation) {
    AcArray<int> a(1, 1);
    a.append(1);
    a.append(a[0]);   // the element lives in the array being grown
    a.append(a);
    ASSERT_EQ(a.length(), 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(a[i], 1);
    AcArray<int> big;
    for (int i = 0; i < 100000; ++i) big.append(i);
    EXPECT_EQ(big.length(), 100000);
    EXPECT_EQ(big[99999], 99999);
}

TEST(AcArray, CopiesAreDeepAndNestedArraysWork) {
    AcArray<AcGePoint3dArray> nested;
    AcGePoint3dArray row;
    row.append(AcGePoint3d(1, 2, 3));
    nested.append(row);
    nested.append(row);
    nested[1].append(AcGePoint3d(4, 5, 6));
    EXPECT_EQ(nested[0].length(), 1);
    EXPECT_EQ(nested[1].length(), 2);
    AcArray<AcGePoint3dArray> copy = nested;
    copy[0][0].x = 100;
    EXPECT_EQ(nested[0][0].x, 1);
    EXPECT_TRUE(copy[1] == nested[1]);
}

TEST(AcGeTol, DefaultsAndGlobalContext) {
    AcGeTol t;
    EXPECT_EQ(t.equalPoint(), 1e-10);
    EXPECT_EQ(t.equalVector(), 1e-12);
    EXPECT_EQ(AcGeContext::gTol.equalPoint(), 1e-10);
    EXPECT_EQ(AcGeContext::gTol.equalVector(), 1e-12);
}

TEST(AcGePoint, EqualityFollowsTheTolerance) {
    AcGePoint3d a(1, 2, 3), b(1 + 5e-11, 2, 3), c(1 + 1e-9, 2, 3);
    EXPECT_TRUE(a == b);
    EXPECT_FALSE(a == c);
    AcGeTol loose;
    loose.setEqualPoint(1e-6);
    EXPECT_TRUE(a.isEqualTo(c, loose));
    AcGePoint2d p(0, 0), q(3, 4);
    EXPECT_DOUBLE_EQ(p.distanceTo(q), 5.0);
    EXPECT_TRUE(AcGePoint2d(1, 1) != AcGePoint2d(1, 1.1));
    EXPECT_DOUBLE_EQ((q - p).length(), 5.0);
}

TEST(AcGeVector, NormalAngleAndPredicates) {
    AcGeVector3d v(3, 0, 4);
    EXPECT_DOUBLE_EQ(v.length(), 5.0);
    EXPECT_TRUE(v.normal().isUnitLength());
    EXPECT_TRUE(AcGeVector3d().normal().isZeroLength());
    EXPECT_NEAR(AcGeVector3d::kXAxis.angleTo(AcGeVector3d::kYAxis), kPi / 2, 1e-15);
    EXPECT_NEAR(AcGeVector3d::kXAxis.angleTo(AcGeVector3d::kYAxis, AcGeVector3d::kZAxis), kPi / 2, 1e-15);
    EXPECT_NEAR(AcGeVector3d::kXAxis.angleTo(AcGeVector3d::kYAxis, -AcGeVector3d::kZAxis), 3 * kPi / 2, 1e-15);
    EXPECT_TRUE(AcGeVector3d(1, 1, 0).isParallelTo(AcGeVector3d(-2, -2, 0)));
    EXPECT_FALSE(AcGeVector3d(1, 1, 0).isCodirectionalTo(AcGeVector3d(-2, -2, 0)));
    EXPECT_TRUE(AcGeVector3d(1, 1, 0).isPerpendicularTo(AcGeVector3d(1, -1, 0)));
    EXPECT_TRUE(AcGeVector3d::kXAxis.crossProduct(AcGeVector3d::kYAxis) == AcGeVector3d::kZAxis);
    EXPECT_NEAR(AcGeVector2d(-1, 0).angle(), kPi, 1e-15);
    EXPECT_NEAR(AcGeVector2d(0, -1).angle(), 3 * kPi / 2, 1e-15);
    EXPECT_EQ(AcGeVector2d(0, 0).angle(), 0.0);
    EXPECT_NEAR(AcGeVector2d(1, 0).angleTo(AcGeVector2d(0, -1)), kPi / 2, 1e-15);
}

TEST(AcGeMatrix3d, RotationTranslationAndInverse) {
    AcGeMatrix3d r = AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis, AcGePoint3d(1, 1, 0));
    AcGePoint3d p = AcGePoint3d(2, 1, 0);
    p.transformBy(r);
    EXPECT_TRUE(p.isEqualTo(AcGePoint3d(1, 2, 0)));
    AcGeMatrix3d t = AcGeMatrix3d::translation(AcGeVector3d(5, 6, 7));
    AcGeMatrix3d m = t * r;
    EXPECT_NEAR(m.det(), 1.0, 1e-12);
    AcGeMatrix3d back = m.inverse();
    EXPECT_TRUE((m * back).isEqualTo(AcGeMatrix3d::kIdentity));
    AcGeMatrix3d s = AcGeMatrix3d::scaling(2.0);
    EXPECT_NEAR(s.det(), 8.0, 1e-12);
    EXPECT_DOUBLE_EQ(s.scale(), 2.0);
    EXPECT_TRUE(s.isUniScaledOrtho());
    // A vector ignores the translation.
    AcGeVector3d v(1, 0, 0);
    v.transformBy(t);
    EXPECT_TRUE(v == AcGeVector3d(1, 0, 0));
}

TEST(AcGeMatrix3d, SingularMatricesStayAsTheyAre) {
    AcGeMatrix3d z;
    z.entry[2][2] = 0.0;
    EXPECT_TRUE(z.isSingular());
    AcGeMatrix3d out;
    EXPECT_FALSE(z.inverse(out, 1e-12));
    EXPECT_TRUE(z.inverse() == z);
    EXPECT_EQ(z.det(), 0.0);
}

TEST(AcGeMatrix3d, CoordinateSystemsAndPlanes) {
    AcGeMatrix3d m;
    m.setCoordSystem(AcGePoint3d(1, 2, 3), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    AcGePoint3d o;
    AcGeVector3d x, y, z;
    m.getCoordSystem(o, x, y, z);
    EXPECT_TRUE(o == AcGePoint3d(1, 2, 3));
    EXPECT_TRUE(y == -AcGeVector3d::kXAxis);
    EXPECT_TRUE((m * AcGePoint3d(1, 0, 0)).isEqualTo(AcGePoint3d(1, 3, 3)));
    // The plane of the world normal is the world itself.
    EXPECT_TRUE(AcGeMatrix3d::planeToWorld(AcGeVector3d::kZAxis).isEqualTo(AcGeMatrix3d::kIdentity));
    // Arbitrary-axis rule: a normal along X takes its x axis from Z cross N.
    AcGeMatrix3d p = AcGeMatrix3d::planeToWorld(AcGeVector3d::kXAxis);
    EXPECT_TRUE((p * AcGeVector3d::kXAxis).isEqualTo(AcGeVector3d::kYAxis));
    EXPECT_TRUE((p * AcGeVector3d::kYAxis).isEqualTo(AcGeVector3d::kZAxis));
    AcGeMatrix3d w = AcGeMatrix3d::worldToPlane(AcGeVector3d(1, 2, 3));
    EXPECT_TRUE((w * AcGeMatrix3d::planeToWorld(AcGeVector3d(1, 2, 3))).isEqualTo(AcGeMatrix3d::kIdentity));
    AcGeMatrix3d align = AcGeMatrix3d::alignCoordSys(AcGePoint3d(0, 0, 0), AcGeVector3d::kXAxis, AcGeVector3d::kYAxis,
                                                     AcGeVector3d::kZAxis, AcGePoint3d(10, 0, 0), AcGeVector3d::kYAxis,
                                                     -AcGeVector3d::kXAxis, AcGeVector3d::kZAxis);
    EXPECT_TRUE((align * AcGePoint3d(1, 0, 0)).isEqualTo(AcGePoint3d(10, 1, 0)));
}
}  // namespace
