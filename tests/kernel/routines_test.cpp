// The C-layer routines: matrices, vectors, planes, angles and positions.
#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "kernel/XPoint.h"
#include "kernel/XPushPrec.h"
#include "kernel/matrix_routines.h"
#include "kernel/point_position.h"
#include "kernel/vector_routines.h"
#include "platform/adsdef.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(Matrices, ZRotationLayoutAndProductOrder) {
    double r[4][4], t[4][4], m[4][4];
    AT_InitRotMatrix(kPi / 6, r);
    EXPECT_DOUBLE_EQ(r[0][0], std::cos(kPi / 6));
    EXPECT_DOUBLE_EQ(r[0][1], -std::sin(kPi / 6));
    EXPECT_DOUBLE_EQ(r[1][0], std::sin(kPi / 6));
    AT_InitTranMat(t, 10, 0, 0);
    EXPECT_EQ(t[0][3], 10);
    // A B applies B first: rotate, then move.
    AT_InitRotMatrix(kPi / 2, r);
    EXPECT_EQ(AT_multiply_matrix(t, r, m), 1);
    double p[3] = {1, 0, 0};
    AT_xformpt(m, p, p);   // in place
    EXPECT_NEAR(p[0], 10, 1e-12);
    EXPECT_NEAR(p[1], 1, 1e-12);
}

TEST(Matrices, VariadicProductRunsLeftToRight) {
    double a[4][4], b[4][4], c[4][4], m[4][4], ab[4][4], abc[4][4];
    AT_InitRotMatrix(0.3, a);
    AT_InitTranMat(b, 1, 2, 3);
    AT_InitRotMatrix(-1.1, c);
    c[2][2] = 2;
    MatrixMultiply(m, a, b, c, nullptr);
    AT_multiply_matrix(a, b, ab);
    AT_multiply_matrix(ab, c, abc);
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j) EXPECT_NEAR(m[i][j], abc[i][j], 1e-15);
}

TEST(Matrices, PointRotationAboutABase) {
    double p[3] = {2, 1, 4}, base[3] = {1, 1, 0};
    AT_PointRotation(p, base, kPi);
    EXPECT_NEAR(p[0], 0, 1e-12);
    EXPECT_NEAR(p[1], 1, 1e-12);
    EXPECT_NEAR(p[2], 4, 1e-12);
}

TEST(Matrices, ConstructMatrixRemovesTheBaseFirst) {
    double m[4][4];
    ConstructMatrix(XPoint(1, 1, 0), XPoint(10, 20, 0), 2, 3, 1, kPi / 2, m);
    XPoint p = XPoint(2, 1, 0).TransformAs(m);   // base + (1, 0): scaled to (2, 0), turned to (0, 2)
    EXPECT_NEAR(p.x, 10, 1e-12);
    EXPECT_NEAR(p.y, 22, 1e-12);
    p = XPoint(1, 2, 0).TransformAs(m);          // (0, 1) -> (0, 3) -> (-3, 0)
    EXPECT_NEAR(p.x, 7, 1e-12);
    EXPECT_NEAR(p.y, 20, 1e-12);
}

TEST(Matrices, GetMatrixMovesTheFrameOntoTheWorldAxes) {
    double o[3] = {1, 1, 1}, p1[3] = {1, 3, 1}, p2[3] = {0, 1, 1}, m[4][4];
    get_matrix(o, p1, p2, m);
    XPoint a = XPoint(p1).TransformAs(m), b = XPoint(p2).TransformAs(m), c = XPoint(o).TransformAs(m);
    EXPECT_NEAR(c.Length(), 0, 1e-12);
    EXPECT_NEAR(a.x, 2, 1e-12);
    EXPECT_NEAR(a.y, 0, 1e-12);
    EXPECT_NEAR(a.z, 0, 1e-12);
    EXPECT_NEAR(b.z, 0, 1e-12);
    EXPECT_GT(b.y, 0);
}

TEST(Matrices, InverseWithCompletePivoting) {
    std::mt19937 rng(42);
    std::uniform_real_distribution<double> u(-10, 10);
    for (int trial = 0; trial < 200; ++trial) {
        double m[4][4], inv[4][4], prod[4][4];
        for (auto& row : m)
            for (double& v : row) v = u(rng);
        ASSERT_EQ(AT_amatrix(m, inv), RTNORM);
        AT_multiply_matrix(m, inv, prod);
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) EXPECT_NEAR(prod[i][j], i == j ? 1.0 : 0.0, 1e-8);
    }
    double singular[4][4] = {{1, 2, 3, 4}, {2, 4, 6, 8}, {0, 0, 1, 0}, {0, 0, 0, 1}}, out[4][4];
    EXPECT_EQ(AT_amatrix(singular, out), RTERROR);
    double a3[9] = {0, 2, 0, 1, 0, 0, 0, 0, 4};   // needs row and column swaps
    ASSERT_EQ(CT_Inverse_mat(a3, 3, 1e-12), 1);
    EXPECT_NEAR(a3[1], 1, 1e-15);
    EXPECT_NEAR(a3[3], 0.5, 1e-15);
    EXPECT_NEAR(a3[8], 0.25, 1e-15);
    EXPECT_EQ(CT_Inverse_mat(a3, 0, 1e-12), 0);
}

TEST(Vectors, VectorAngleIgnoresShortVectors) {
    double a[3] = {0.009, 0, 0}, b[3] = {0, 0.009, 0};
    EXPECT_EQ(CT_VectorAngle(a, b), 0);
    double c[3] = {1, 0, 0}, d[3] = {-2, 0.000001, 0}, e[3] = {0, 3, 0};
    EXPECT_EQ(CT_VectorAngle(c, d), kPi);
    EXPECT_DOUBLE_EQ(CT_VectorAngle(c, e), kPi / 2);
    EXPECT_EQ(CT_VectorAngle(c, c), 0);
}

TEST(Planes, ThreePointNormalAndOneSidedCut) {
    double p0[3] = {0, 0, 0}, p1[3] = {1, 0, 0}, p2[3] = {0, 1, 0}, n[3];
    EXPECT_EQ(CT_vector_plan3p(p0, p1, p2, n), 1);
    EXPECT_EQ(n[2], 1);
    double q[3] = {2, 0, 0};
    EXPECT_EQ(CT_vector_plan3p(p0, p1, q, n), 0);

    double normal[3] = {0, 0, 1}, at[3] = {0, 0, 5};
    plan_para pl;
    EXPECT_EQ(CT_plan_equation(at, normal, &pl), 1);
    EXPECT_EQ(pl.d, -5);
    double a[3] = {1, 1, 0}, b[3] = {1, 1, 1}, out[3] = {-7, -7, -7};
    ASSERT_EQ(CT_inter_line_plan1(a, b, &pl, out), 1);
    EXPECT_EQ(out[2], 5);
    EXPECT_EQ(out[0], 1);
    double back[3] = {-7, -7, -7};
    EXPECT_EQ(CT_inter_line_plan1(b, a, &pl, back), 0);   // against the normal
    EXPECT_EQ(back[0], -7);
    double p[3] = {3, 4, -2};
    ASSERT_EQ(CT_point_prj_plan(p, &pl, out), 1);
    EXPECT_EQ(out[0], 3);
    EXPECT_EQ(out[2], 5);
}

TEST(Angles, StdAngleFoldsIntoItsWindow) {
    EXPECT_EQ(CT_std_angle(6.2801), 0.0);
    EXPECT_EQ(CT_std_angle(6.2), 6.2);
    EXPECT_EQ(CT_std_angle(-0.0005), -0.0005);
    EXPECT_NEAR(CT_std_angle(-0.5), 2 * kPi - 0.5, 1e-15);
    EXPECT_NEAR(CT_std_angle(7.0), 7.0 - 2 * kPi, 1e-15);
    EXPECT_NEAR(CT_std_angle(1e6), std::fmod(1e6, 2 * kPi), 1e-9);
    EXPECT_NEAR(CT_std_angle(-1e6), 2 * kPi + std::fmod(-1e6, 2 * kPi), 1e-9);
    double v = CT_std_angle(2 * kPi + 0.0009);   // just inside the upper slack... and near 2 pi
    EXPECT_EQ(v, 0.0);
    EXPECT_TRUE(std::isnan(CT_std_angle(NAN)));
    EXPECT_EQ(CT_acute_angle(3.14165), 3.14165);
    EXPECT_NEAR(CT_acute_angle(4.0), 2 * kPi - 4.0, 1e-15);
}

TEST(Angles, XYZtoRsita) {
    double ang, r;
    double p[3] = {0, -2, 0};
    CT_XYZtoRsita(p, &ang, &r);
    EXPECT_EQ(r, 2);
    EXPECT_DOUBLE_EQ(ang, 3 * kPi / 2);
    double q[3] = {-1, -1, 0};
    CT_XYZtoRsita(q, &ang, &r);
    EXPECT_NEAR(ang, 5 * kPi / 4, 1e-15);
    double s[3] = {1, -1, 0};
    CT_XYZtoRsita(s, &ang, &r);
    EXPECT_NEAR(ang, 7 * kPi / 4, 1e-15);
    double o[3] = {0, 0, 9};
    EXPECT_EQ(CT_XYZtoRsita(o, &ang, &r), 1);
    EXPECT_EQ(ang, 0);
    EXPECT_EQ(r, 0);
}

TEST(PointOnLine, PositionsAndTheToleranceEdge) {
    XPoint a(0, 0, 0), b(10, 0, 0);
    EXPECT_EQ(AT_in_line(XPoint(0, 0, 0), a, b), 1);
    EXPECT_EQ(AT_in_line(XPoint(10, 0, 0), a, b), 2);
    EXPECT_EQ(AT_in_line(XPoint(5, 0, 0), a, b), 3);
    EXPECT_EQ(AT_in_line(XPoint(15, 0, 0), a, b), 4);
    EXPECT_EQ(AT_in_line(XPoint(-5, 0, 0), a, b), 4);
    EXPECT_EQ(AT_in_line(XPoint(5, 1, 0), a, b), 0);
    EXPECT_EQ(AT_in_line(XPoint(5, 0.0099, 0), a, b), 3);
    EXPECT_EQ(AT_in_line(XPoint(5, 0.0101, 0), a, b), 0);
    EXPECT_EQ(AT_pt_of_line(XPoint(0.01, 0.0, 0), a, b), 1);   // the end test includes the tolerance
    // A very short segment reports its start first.
    EXPECT_EQ(AT_in_line(XPoint(0, 0, 0), XPoint(0, 0, 0), XPoint(0.005, 0, 0)), 1);
}

TEST(PointOnLine, ZeroLengthSegmentFollowsTheAlgorithm) {
    XPoint a(1, 1, 0);
    EXPECT_EQ(AT_in_line(XPoint(1, 1, 0), a, a), 1);
    // The -1 distance passes the first test; both ends lie one way: 4.
    EXPECT_EQ(AT_in_line(XPoint(5, 5, 0), a, a), 4);
    EXPECT_EQ(AT_dist_pt_line(XPoint(5, 5, 0), a, a), -1);
}

TEST(PointOnArc, EndsInsideAndTheZeroCrossing) {
    XPoint c(0, 0, 0);
    double r = 10;
    EXPECT_EQ(AT_in_arc(XPoint(10, 0, 0), c, r, 0, kPi / 2), 1);
    EXPECT_EQ(AT_in_arc(XPoint(0, 10, 0), c, r, 0, kPi / 2), 2);
    EXPECT_EQ(AT_in_arc(XPoint(10 * std::cos(0.5), 10 * std::sin(0.5), 0), c, r, 0, kPi / 2), 3);
    EXPECT_EQ(AT_in_arc(XPoint(-10, 0, 0), c, r, 0, kPi / 2), 0);
    EXPECT_EQ(AT_in_arc(XPoint(5, 0, 0), c, r, 0, kPi / 2), 0);
    EXPECT_EQ(AT_in_arc(XPoint(10.0099 * std::cos(0.5), 10.0099 * std::sin(0.5), 0), c, r, 0, kPi / 2), 3);
    // The distance is spatial, the end test planar.
    EXPECT_EQ(AT_in_arc(XPoint(10, 0, 0.5), c, r, 0, kPi / 2), 0);
    EXPECT_EQ(AT_in_arc(XPoint(10, 0.005, 0.005), c, r, 0, kPi / 2), 1);
    EXPECT_EQ(AT_in_arc(XPoint(10.0101 * std::cos(0.5), 10.0101 * std::sin(0.5), 0), c, r, 0, kPi / 2), 0);
    // 350 to 10 degrees crosses angle 0.
    double a1 = 350 * kPi / 180, a2 = 10 * kPi / 180;
    EXPECT_EQ(AT_in_arc(XPoint(10, 0, 0), c, r, a1, a2), 3);
    EXPECT_EQ(AT_in_arc(XPoint(-10, 0, 0), c, r, a1, a2), 0);
}

TEST(LineCircle, TwoPointsAlwaysWrittenTangentIncluded) {
    XPoint a, b, c(0, 0, 3);
    ASSERT_EQ(AT_inter_line_circle(a, b, XPoint(-20, 0, 0), XPoint(20, 0, 0), c, 5), RTNORM);
    EXPECT_NEAR(a.x, 5, 1e-12);   // the greater x first
    EXPECT_NEAR(b.x, -5, 1e-12);
    EXPECT_EQ(a.z, 3);
    ASSERT_EQ(AT_inter_line_circle(a, b, XPoint(0, -20, 0), XPoint(0.001, 20, 0), c, 5), RTNORM);
    EXPECT_NEAR(a.y, 5, 1e-6);   // a vertical line: the greater y first
    XPoint flat(0, 0, 0);
    ASSERT_EQ(AT_inter_line_circle(a, b, XPoint(-20, 5, 0), XPoint(20, 5, 0), flat, 5), RTNORM);
    EXPECT_NEAR(a.x, b.x, 1e-6);
    EXPECT_EQ(AT_inter_line_circle(a, b, XPoint(-20, 6, 0), XPoint(20, 6, 0), flat, 5), RTERROR);
    // The distance test is spatial: a centre above the line's plane moves away.
    EXPECT_EQ(AT_inter_line_circle(a, b, XPoint(-20, 5, 0), XPoint(20, 5, 0), c, 5), RTERROR);
}

TEST(CircleCircle, CrossingContainedAndConcentric) {
    XPoint a, b;
    ASSERT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 5, XPoint(8, 0, 0), 5), RTNORM);
    EXPECT_NEAR(a.x, 4, 1e-12);
    EXPECT_NEAR(std::fabs(a.y), 3, 1e-12);
    EXPECT_NEAR(b.y, -a.y, 1e-12);
    EXPECT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 5, XPoint(10, 0, 0), 4.9), RTERROR);
    EXPECT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 5, XPoint(0, 0, 0), 5), RTERROR);
    EXPECT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 5, XPoint(1, 0, 0), 1), RTERROR);
    EXPECT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 10, XPoint(8, 0, 0), 2), RTERROR);   // touching inside
    ASSERT_EQ(AT_inter_circle_circle(a, b, XPoint(0, 0, 0), 5, XPoint(10, 0, 0), 5), RTNORM);    // touching outside
    EXPECT_NEAR(a.x, 5, 1e-6);
    EXPECT_NEAR(b.x, 5, 1e-6);
}
}  // namespace
