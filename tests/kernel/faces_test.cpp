// Spatial faces, split triangles, polyface meshes and their entities.
#include <gtest/gtest.h>

#include <cstring>

#include "host/db/session.h"
#include "kernel/X3DFace.h"
#include "kernel/XPface.h"
#include "kernel/XPoly.h"
#include "kernel/XPolygonEx.h"
#include "platform/acdbads.h"
#include "platform/acutads.h"
#include "platform/dbents.h"
#include "support/owned_list.h"

namespace {
class Faces : public ::testing::Test {
protected:
    void SetUp() override { lumo::db::CloseSessionDatabase(); }
    void TearDown() override { lumo::db::CloseSessionDatabase(); }
};

using Rb = testsupport::OwnedList;

resbuf* FaceList(const double* a, const double* b, const double* c, const double* d, int flags) {
    return acutBuildList(RTDXF0, "3DFACE", 10, a, 11, b, 12, c, 13, d, 70, flags, 0);
}

const double P0[3] = {0, 0, 0}, P1[3] = {10, 0, 0}, P2[3] = {10, 5, 0}, P3[3] = {0, 5, 0};
}  // namespace

TEST(X3DFaceData, FourDistinctCornersAreNoTriangle) {
    Rb list(FaceList(P0, P1, P2, P3, 1));
    EXPECT_TRUE(!X3DFace3C(list.p));
}

TEST(X3DFaceData, FarCoordinateOrWrongTypeIsInvalid) {
    const double far[3] = {1.5e9, 0, 0};
    Rb list(FaceList(P0, P1, far, P3, 0));
    EXPECT_TRUE(!X3DFace(list.p, nullptr));
    Rb line(acutBuildList(RTDXF0, "LINE", 10, P0, 11, P1, 0));
    EXPECT_TRUE(!X3DFace(line.p, nullptr));
    Rb lower(acutBuildList(RTDXF0, "3dface", 10, P0, 11, P1, 12, P2, 13, P3, 0));   // the name is compared with case
    EXPECT_TRUE(!X3DFace(lower.p, nullptr));
    Rb good(FaceList(P0, P1, P2, P3, 0));
    EXPECT_FALSE(!X3DFace(good.p, nullptr));
}

TEST(X3DFaceData, RectangleReportsItsSides) {
    Rb list(FaceList(P0, P1, P2, P3, 0));
    X3DFace f(list.p, nullptr);
    double w = 0, h = 0;
    EXPECT_EQ(f.IsRectangular(&w, &h), 1);
    EXPECT_DOUBLE_EQ(w, 10.0);
    EXPECT_DOUBLE_EQ(h, 5.0);
    EXPECT_DOUBLE_EQ(f.Direction().z, 1.0);
}

TEST(X3DFaceData, TwoHalvesMergeBackIntoTheQuadrilateral) {
    // Each triangle repeats its last corner and hides the shared diagonal.
    Rb la(FaceList(P0, P1, P2, P2, 8));   // hidden: corner 3 (= 2) to corner 0
    Rb lb(FaceList(P2, P3, P0, P0, 8));
    X3DFace3C a(la.p), b(lb.p);
    ASSERT_FALSE(!a);
    ASSERT_FALSE(!b);
    EXPECT_EQ(a.MergeEdge(), 2);
    EXPECT_EQ(a.OppHidePoint(), 1);
    X3DFace q(a, b);
    ASSERT_FALSE(!q);
    EXPECT_TRUE(q.pt[0] == XPoint(P1));
    EXPECT_TRUE(q.pt[1] == XPoint(P2));
    EXPECT_TRUE(q.pt[2] == XPoint(P3));
    EXPECT_TRUE(q.pt[3] == XPoint(P0));
}

TEST(X3DFaceData, HalvesOutOfPlaneDoNotMerge) {
    const double up[3] = {0, 5, 3};
    Rb la(FaceList(P0, P1, P2, P2, 8)), lb(FaceList(P2, up, P0, P0, 8));
    X3DFace3C a(la.p), b(lb.p);
    EXPECT_TRUE(!X3DFace(a, b));
}

TEST(XTrianglePfaceData, SharedCornersAreOneVertexAndDiagonalsHidden) {
    XTrianglePface tris;
    DList<XTriangle> out;
    XPolygonEx sq;
    for (const double* p : {P0, P1, P2, P3}) sq.AppendNode(XPoint(p), 1);
    ASSERT_EQ(sq.Trianglize(tris, 1), RTNORM);
    XPface mesh;
    tris.AsPface(mesh);
    EXPECT_EQ(mesh.Count(), 4);
    ASSERT_EQ(mesh.faces.Count(), 2);
    int hidden = 0;
    for (const XPolyFacet& f : mesh.faces)
        for (int k = 0; k < 3; ++k) hidden += f.index[k] < 0;
    EXPECT_EQ(hidden, 2);   // the one diagonal, from both sides
}

TEST_F(Faces, FaceEntityRoundTrips) {
    Rb list(FaceList(P0, P1, P2, P3, 5));
    X3DFace f(list.p, nullptr);
    ASSERT_EQ(f.Make("0"), RTNORM);
    ads_name e;
    ASSERT_EQ(acdbEntLast(e), RTNORM);
    X3DFace back(e, nullptr);
    EXPECT_EQ(back.flags, 5);
    EXPECT_TRUE(back.pt[2] == XPoint(P2));
    back.pt[2] = XPoint(20, 5, 0);
    ASSERT_EQ(back.Modify(e), RTNORM);
    EXPECT_TRUE(X3DFace(e, nullptr).pt[2] == XPoint(20, 5, 0));
}

TEST_F(Faces, PolyfaceAndSolidsAreMade) {
    XTrianglePface tris;
    XPolygonEx sq;
    for (const double* p : {P0, P1, P2, P3}) sq.AppendNode(XPoint(p), 1);
    sq.Trianglize(tris, 1);
    ASSERT_EQ(tris.MakePolyface("0"), RTNORM);
    ads_name e;
    ASSERT_EQ(acdbEntLast(e), RTNORM);
    Rb poly(acdbEntGet(e));
    ASSERT_NE(poly.p, nullptr);
    ASSERT_EQ(tris.MakeSolid("0"), RTNORM);
    ASSERT_EQ(acdbEntLast(e), RTNORM);
    Rb solid(acdbEntGet(e));
    ASSERT_NE(solid.p, nullptr);
    const resbuf* type = solid.p;
    while (type && type->restype != 0) type = type->rbnext;
    ASSERT_NE(type, nullptr);
    EXPECT_STREQ(type->resval.rstring, "SOLID");
}

TEST(ConstructPolyFaceData, FacesShareVerticesAndKeepHiddenEdges) {
    AcArray<void*> faces;
    XPoint q0(P0), q1(P1), q2(P2), q3(P3);
    AcDbFace a(q0, q1, q2, q2, true, true, false, true);
    AcDbFace b(q2, q3, q0, q0, true, true, false, true);
    AcDbLine other(q0, q1);
    faces.append(&a);
    faces.append(&other);
    faces.append(&b);
    XPface* mesh = ConstructPolyFace(faces);
    ASSERT_NE(mesh, nullptr);
    EXPECT_EQ(mesh->Count(), 4);
    ASSERT_EQ(mesh->faces.Count(), 2);
    EXPECT_EQ(mesh->faces.First()->index[2], -3);
    delete mesh;
    AcArray<void*> none;
    EXPECT_EQ(ConstructPolyFace(none), nullptr);
}

TEST(PolygonPface, ASquareBecomesAPolyfaceOfTwoTriangles) {
    lumo::db::CloseSessionDatabase();
    XPoly square;
    for (const XPoint& p : {XPoint(0, 0, 0), XPoint(10, 0, 0), XPoint(10, 10, 0), XPoint(0, 10, 0)}) square.AppendPoint(p);
    ASSERT_EQ(square.CreatePface(nullptr), RTNORM);
    ads_name mesh, e;
    ASSERT_EQ(acdbEntNext(nullptr, mesh), RTNORM);
    resbuf* head = acdbEntGet(mesh);
    int flags = 0, faces = 0;
    for (const resbuf* rb = head; rb; rb = rb->rbnext)
        if (rb->restype == 70) flags = rb->resval.rint;
    acutRelRb(head);
    EXPECT_TRUE(flags & 64);   // a polyface mesh
    std::memcpy(e, mesh, sizeof e);
    while (acdbEntNext(e, e) == RTNORM) {
        resbuf* v = acdbEntGet(e);
        for (const resbuf* rb = v; rb; rb = rb->rbnext)
            if (rb->restype == 70 && (rb->resval.rint & 128) && !(rb->resval.rint & 64)) ++faces;
        acutRelRb(v);
    }
    EXPECT_EQ(faces, 2);
    lumo::db::CloseSessionDatabase();
}
