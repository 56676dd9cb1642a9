// The placement matrix of a block reference in the working drawing.
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "kernel/XPoint.h"
#include "kernel/insert_matrix.h"
#include "platform/dbents.h"
#include "platform/dbmain.h"
#include "platform/dbsymtb.h"

namespace {
constexpr double kPi = std::numbers::pi;

TEST(GetInsertMatrix, BaseScaleRotationAndInsertion) {
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(db->getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    auto* block = new AcDbBlockTableRecord();
    block->setName("H2_PLACED");
    AcDbObjectId blockId;
    ASSERT_EQ(table->add(blockId, block), Acad::eOk);
    ASSERT_EQ(block->setOrigin(AcGePoint3d(1, 1, 0)), Acad::eOk);
    block->close();
    AcDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(table->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite), Acad::eOk);
    table->close();
    auto* ref = new AcDbBlockReference(AcGePoint3d(10, 20, 0), blockId);
    ref->setRotation(kPi / 2);
    ref->setScaleFactors(AcGeScale3d(2, 3, 1));
    AcDbObjectId refId;
    ASSERT_EQ(space->appendAcDbEntity(refId, ref), Acad::eOk);
    ref->close();
    auto* line = new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0));
    AcDbObjectId lineId;
    ASSERT_EQ(space->appendAcDbEntity(lineId, line), Acad::eOk);
    line->close();
    space->close();

    ads_name name;
    ASSERT_EQ(acdbGetAdsName(name, refId), Acad::eOk);
    double m[4][4];
    ASSERT_EQ(GetInsertMatrix(name, m), RTNORM);
    XPoint p = XPoint(2, 1, 0).TransformAs(m);   // base + (1, 0) -> (2, 0) -> (0, 2) -> + insertion
    EXPECT_NEAR(p.x, 10, 1e-12);
    EXPECT_NEAR(p.y, 22, 1e-12);
    ASSERT_EQ(acdbGetAdsName(name, lineId), Acad::eOk);
    EXPECT_EQ(GetInsertMatrix(name, m), RTERROR);
}
}  // namespace
