// A new drawing: what it holds, and that it writes and reads back as it was.
#include <gtest/gtest.h>

#include <algorithm>

#include "hostdb_support.h"
#include "host/db/database_impl.h"
#include "platform/dbdict.h"
#include "platform/dbsymtb.h"

using namespace hostdb;
using lumo::db::DxfVersion;

namespace {

template <class Table>
std::vector<std::string> Names(AcDbDatabase& db) {
    Table* table = nullptr;
    EXPECT_EQ(db.getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    std::vector<std::string> names;
    if (!table) return names;
    AcDbSymbolTableIterator* it = nullptr;
    table->newIterator(it);
    for (; !it->done(); it->step()) {
        AcDbSymbolTableRecord* rec = nullptr;
        EXPECT_EQ(it->getRecord(rec, AcDb::kForRead), Acad::eOk);
        names.push_back(rec->name());
        rec->close();
    }
    delete it;
    table->close();
    return names;
}

using V = std::vector<std::string>;

TEST(NewDrawing, HoldsWhatTheHostsNewDrawingHolds) {
    AcDbDatabase db;
    EXPECT_EQ(Names<AcDbLayerTable>(db), V{"0"});
    V linetypes = Names<AcDbLinetypeTable>(db);
    for (const char* lt : {"ByBlock", "ByLayer", "Continuous"})
        EXPECT_NE(std::find_if(linetypes.begin(), linetypes.end(),
                               [&](const std::string& n) { return lumo::db::SameName(n, lt); }),
                  linetypes.end())
            << lt;
    EXPECT_EQ(Names<AcDbTextStyleTable>(db), V{"Standard"});
    EXPECT_EQ(Names<AcDbBlockTable>(db), (V{ACDB_MODEL_SPACE, ACDB_PAPER_SPACE}));
    EXPECT_EQ(Names<AcDbRegAppTable>(db), V{"ACAD"});
    EXPECT_FALSE(db.modelSpaceId().isNull());

    AcDbDictionary* nod = nullptr;
    ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(nod->has("ACAD_GROUP"));
    nod->close();
}

TEST(NewDrawing, WritesAndReadsBackUnchangedInBothVersions) {
    for (DxfVersion v : {DxfVersion::R2000, DxfVersion::R12}) {
        AcDbDatabase db;
        std::string text = ToDxf(db, v);
        ASSERT_FALSE(text.empty());
        EXPECT_EQ(text.substr(text.size() - 8), "  0\nEOF\n");
        std::string error;
        auto again = FromDxf(text, &error);
        ASSERT_TRUE(again) << error;
        EXPECT_EQ(Names<AcDbLayerTable>(*again), V{"0"});
        EXPECT_EQ(Names<AcDbTextStyleTable>(*again), V{"Standard"});
        if (v == DxfVersion::R2000) {
            EXPECT_EQ(ToDxf(*again, v), text);
        }
    }
}

TEST(NewDrawing, CloseOfAnObjectNotOpenFails) {
    AcDbDatabase db;
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(db.getLayerTable(layers, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(layers->close(), Acad::eOk);
    EXPECT_NE(layers->close(), Acad::eOk);   // the caller's cue for acrx_abort
}

TEST(NewDrawingDeathTest, AFailedCloseEndsTheProgramWithTheHostsMessage) {
    EXPECT_DEATH(acrx_abort("Failed AcDbObject::close()"), "Failed AcDbObject::close\\(\\)");
}

}  // namespace
