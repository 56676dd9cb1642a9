// First checks of the DXF path: a new drawing written and read back.
#include <gtest/gtest.h>

#include "hostdb_support.h"
#include "platform/dbsymtb.h"

using namespace hostdb;

TEST(DxfSmoke, NewDrawingWritesAndReadsBack) {
    AcDbDatabase db;
    std::string text = ToDxf(db);
    ASSERT_FALSE(text.empty());
    std::string error;
    auto again = FromDxf(text, &error);
    ASSERT_TRUE(again) << error;
    EXPECT_EQ(ToDxf(*again), text);
}

TEST(DxfSmoke, DumpNewDrawing) {
    AcDbDatabase db;
    std::string error;
    ASSERT_TRUE(lumo::db::SaveDatabase(db, "/tmp/h3_new.dxf", error)) << error;
    ASSERT_TRUE(lumo::db::SaveDatabase(db, "/tmp/h3_new12.dxf", error, lumo::db::DxfVersion::R12)) << error;
}

TEST(DxfSmoke, DumpFloorplan) {
    std::string error;
    ASSERT_TRUE(lumo::db::OpenDrawing("/work/main/examples/floorplan.dxf", error)) << error;
    ASSERT_TRUE(lumo::db::SaveDrawing("/tmp/h3_floor.dxf", error)) << error;
    ASSERT_TRUE(lumo::db::SaveDrawing("/tmp/h3_floor12.dxf", error, lumo::db::DxfVersion::R12)) << error;
}
