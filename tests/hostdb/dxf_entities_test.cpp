// Each entity kind read from R12 and from R2000 text and written back group
// for group. Handles and owners are left out of the comparison: the texts
// here give none, so the drawing hands out its own.
#include <gtest/gtest.h>

#include "hostdb_support.h"

using namespace hostdb;
using lumo::db::DxfVersion;

namespace {

using G = std::vector<Group>;

std::string Text(const G& groups) {
    std::string s;
    for (const auto& [code, value] : groups) {
        std::string c = std::to_string(code);
        s += std::string(c.size() < 3 ? 3 - c.size() : 0, ' ') + c + "\n" + value + "\n";
    }
    return s;
}

G Cat(std::initializer_list<G> parts) {
    G out;
    for (const G& p : parts) out.insert(out.end(), p.begin(), p.end());
    return out;
}

// A block "B" with one line, for the inserts.
G Blocks(bool r2000) {
    if (!r2000)
        return {{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {8, "0"}, {2, "B"}, {70, "0"}, {10, "0.0"}, {20, "0.0"},
                {30, "0.0"}, {3, "B"}, {1, ""}, {0, "LINE"}, {8, "0"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"},
                {11, "1.0"}, {21, "0.0"}, {31, "0.0"}, {0, "ENDBLK"}, {8, "0"}, {0, "ENDSEC"}};
    return {{0, "SECTION"}, {2, "BLOCKS"}, {0, "BLOCK"}, {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockBegin"},
            {2, "B"}, {70, "0"}, {10, "0.0"}, {20, "0.0"}, {30, "0.0"}, {3, "B"}, {1, ""}, {0, "ENDBLK"},
            {100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockEnd"}, {0, "ENDSEC"}};
}

std::string File(const G& entities, bool r2000) {
    G head = {{0, "SECTION"}, {2, "HEADER"}, {9, "$ACADVER"}, {1, r2000 ? "AC1015" : "AC1009"}, {0, "ENDSEC"}};
    G body = {{0, "SECTION"}, {2, "ENTITIES"}};
    G tail = {{0, "ENDSEC"}, {0, "EOF"}};
    return Text(Cat({head, Blocks(r2000), body, entities, tail}));
}

// The ENTITIES section of a file, without handles and owners.
G Entities(const std::string& text) {
    G all = Groups(text), out;
    bool in = false;
    for (size_t k = 0; k < all.size(); ++k) {
        if (all[k].first == 2 && all[k].second == "ENTITIES") in = true;
        else if (in && all[k].first == 0 && all[k].second == "ENDSEC") break;
        else if (in && all[k].first != 5 && all[k].first != 330) out.push_back(all[k]);
    }
    return out;
}

void ExpectRoundTrip(const G& entities, bool r2000) {
    std::string error;
    auto db = FromDxf(File(entities, r2000), &error);
    ASSERT_TRUE(db) << error;
    std::string out = ToDxf(*db, r2000 ? DxfVersion::R2000 : DxfVersion::R12);
    EXPECT_EQ(Entities(out), entities) << out;
    // and a second pass changes nothing more (an R12 file has no objects
    // section, so its drawing gets new dictionaries each time it is read)
    auto again = FromDxf(out, &error);
    ASSERT_TRUE(again) << error;
    std::string twice = ToDxf(*again, r2000 ? DxfVersion::R2000 : DxfVersion::R12);
    if (r2000) EXPECT_EQ(twice, out);
    else EXPECT_EQ(Entities(twice), entities);
}

G P(int code, const char* x, const char* y, const char* z) { return {{code, x}, {code + 10, y}, {code + 20, z}}; }
G P2(int code, const char* x, const char* y) { return {{code, x}, {code + 10, y}}; }

const G kR2000Entity = {{100, "AcDbEntity"}, {8, "WALL"}};
const G kR12Entity = {{8, "WALL"}};

}  // namespace

TEST(DxfEntityRoundTrip, Line) {
    G body = Cat({P(10, "1.5", "2.0", "0.0"), P(11, "3.25", "-4.0", "7.0")});
    ExpectRoundTrip(Cat({{{0, "LINE"}}, kR12Entity, body}), false);
    ExpectRoundTrip(Cat({{{0, "LINE"}}, kR2000Entity, {{100, "AcDbLine"}, {39, "2.5"}}, body,
                         P(210, "0.0", "0.0", "-1.0")}),
                    true);
}

TEST(DxfEntityRoundTrip, CircleAndArcKeepDegrees) {
    G circle = Cat({P(10, "5.0", "6.0", "0.0"), {{40, "2.0"}}});
    ExpectRoundTrip(Cat({{{0, "CIRCLE"}}, kR12Entity, circle}), false);
    ExpectRoundTrip(Cat({{{0, "CIRCLE"}}, kR2000Entity, {{100, "AcDbCircle"}}, circle}), true);
    ExpectRoundTrip(Cat({{{0, "ARC"}}, kR12Entity, circle, {{50, "30.0"}, {51, "270.5"}}}), false);
    ExpectRoundTrip(Cat({{{0, "ARC"}}, kR2000Entity, {{100, "AcDbCircle"}}, circle,
                         {{100, "AcDbArc"}, {50, "30.0"}, {51, "270.5"}}}),
                    true);
}

TEST(DxfEntityRoundTrip, PointSolidTraceFace) {
    G corners = Cat({P(10, "0.0", "0.0", "0.0"), P(11, "1.0", "0.0", "0.0"), P(12, "0.0", "1.0", "0.0"),
                     P(13, "1.0", "1.0", "0.0")});
    for (const char* kind : {"SOLID", "TRACE"}) {
        ExpectRoundTrip(Cat({{{0, kind}}, kR12Entity, corners}), false);
        ExpectRoundTrip(Cat({{{0, kind}}, kR2000Entity, {{100, "AcDbTrace"}}, corners}), true);
    }
    ExpectRoundTrip(Cat({{{0, "3DFACE"}}, kR12Entity, corners, {{70, "5"}}}), false);
    ExpectRoundTrip(Cat({{{0, "3DFACE"}}, kR2000Entity, {{100, "AcDbFace"}}, corners, {{70, "5"}}}), true);
    ExpectRoundTrip(Cat({{{0, "POINT"}}, kR12Entity, P(10, "1.0", "2.0", "3.0")}), false);
    ExpectRoundTrip(Cat({{{0, "POINT"}}, kR2000Entity, {{100, "AcDbPoint"}}, P(10, "1.0", "2.0", "3.0"), {{50, "45.0"}}}),
                    true);
}

TEST(DxfEntityRoundTrip, TextWithAlignment) {
    G text = Cat({P(10, "1.0", "2.0", "0.0"), {{40, "2.5"}, {1, "Hello, world"}, {50, "30.0"}, {7, "Standard"}, {72, "1"}},
                  P(11, "3.0", "4.0", "0.0")});
    ExpectRoundTrip(Cat({{{0, "TEXT"}}, kR12Entity, text, {{73, "2"}}}), false);
    ExpectRoundTrip(Cat({{{0, "TEXT"}}, kR2000Entity, {{100, "AcDbText"}}, text, {{100, "AcDbText"}, {73, "2"}}}), true);
}

TEST(DxfEntityRoundTrip, MTextInPieces) {
    std::string longText(600, 'x');
    G body = Cat({{{100, "AcDbMText"}}, P(10, "1.0", "2.0", "0.0"),
                  {{40, "2.5"}, {41, "40.0"}, {71, "1"}, {72, "1"}, {3, longText.substr(0, 250)},
                   {3, longText.substr(250, 250)}, {1, longText.substr(500)}, {7, "Standard"}}});
    ExpectRoundTrip(Cat({{{0, "MTEXT"}}, kR2000Entity, body}), true);
}

TEST(DxfEntityRoundTrip, InsertWithAttributes) {
    G insert12 = Cat({{{0, "INSERT"}}, kR12Entity, {{66, "1"}, {2, "B"}}, P(10, "1.0", "2.0", "0.0"),
                      {{41, "2.0"}, {42, "2.0"}, {43, "2.0"}, {50, "45.0"}}});
    G attrib12 = Cat({{{0, "ATTRIB"}}, kR12Entity, P(10, "1.0", "2.0", "0.0"),
                      {{40, "0.5"}, {1, "D1"}, {2, "NUM"}, {70, "0"}}});
    G seqend12 = Cat({{{0, "SEQEND"}}, kR12Entity});
    ExpectRoundTrip(Cat({insert12, attrib12, seqend12}), false);
    G insert = Cat({{{0, "INSERT"}}, kR2000Entity, {{100, "AcDbBlockReference"}, {66, "1"}, {2, "B"}},
                    P(10, "1.0", "2.0", "0.0"), {{41, "2.0"}, {42, "2.0"}, {43, "2.0"}, {50, "45.0"}}});
    G attrib = Cat({{{0, "ATTRIB"}}, kR2000Entity, {{100, "AcDbText"}}, P(10, "1.0", "2.0", "0.0"),
                    {{40, "0.5"}, {1, "D1"}, {100, "AcDbAttribute"}, {2, "NUM"}, {70, "0"}}});
    G seqend = Cat({{{0, "SEQEND"}}, kR2000Entity});
    ExpectRoundTrip(Cat({insert, attrib, seqend}), true);
    // a plain insert has no SEQEND
    ExpectRoundTrip(Cat({{{0, "INSERT"}}, kR2000Entity, {{100, "AcDbBlockReference"}, {2, "B"}}, P(10, "0.0", "0.0", "0.0")}),
                    true);
}

TEST(DxfEntityRoundTrip, PolylineKinds) {
    struct Kind {
        const char* marker;
        const char* vertexMarker;
        const char* flags;
        const char* vertexFlags;
    };
    for (Kind k : {Kind{"AcDb2dPolyline", "AcDb2dVertex", "1", "0"}, Kind{"AcDb3dPolyline", "AcDb3dPolylineVertex", "8", "32"},
                   Kind{"AcDbPolygonMesh", "AcDbPolygonMeshVertex", "16", "64"}}) {
        G head12 = Cat({{{0, "POLYLINE"}}, kR12Entity, {{66, "1"}}, P(10, "0.0", "0.0", "0.0"), {{70, k.flags}}});
        G vertex12 = Cat({{{0, "VERTEX"}}, kR12Entity, P(10, "1.0", "2.0", "3.0"), {{70, k.vertexFlags}}});
        G end12 = Cat({{{0, "SEQEND"}}, kR12Entity});
        ExpectRoundTrip(Cat({head12, vertex12, vertex12, end12}), false);
        G head = Cat({{{0, "POLYLINE"}}, kR2000Entity, {{100, k.marker}, {66, "1"}}, P(10, "0.0", "0.0", "0.0"),
                      {{70, k.flags}}});
        G vertex = Cat({{{0, "VERTEX"}}, kR2000Entity, {{100, "AcDbVertex"}, {100, k.vertexMarker}},
                        P(10, "1.0", "2.0", "3.0"), {{70, k.vertexFlags}}});
        G end = Cat({{{0, "SEQEND"}}, kR2000Entity});
        ExpectRoundTrip(Cat({head, vertex, vertex, end}), true);
    }
}

TEST(DxfEntityRoundTrip, PolyfaceWithFaceRecords) {
    G head = Cat({{{0, "POLYLINE"}}, kR2000Entity, {{100, "AcDbPolyFaceMesh"}, {66, "1"}}, P(10, "0.0", "0.0", "0.0"),
                  {{70, "64"}, {71, "3"}, {72, "1"}}});
    auto vertex = [](const char* x) {
        return Cat({{{0, "VERTEX"}}, kR2000Entity, {{100, "AcDbVertex"}, {100, "AcDbPolyFaceMeshVertex"}},
                    P(10, x, "0.0", "0.0"), {{70, "192"}}});
    };
    G face = Cat({{{0, "VERTEX"}}, kR2000Entity, {{100, "AcDbVertex"}, {100, "AcDbFaceRecord"}},
                  P(10, "0.0", "0.0", "0.0"), {{70, "128"}, {71, "1"}, {72, "2"}, {73, "-3"}}});
    ExpectRoundTrip(Cat({head, vertex("0.0"), vertex("1.0"), vertex("2.0"), face, {{0, "SEQEND"}}, kR2000Entity}), true);
}

TEST(DxfEntityRoundTrip, LwPolylineWithBulgesAndWidths) {
    G body = Cat({{{100, "AcDbPolyline"}, {90, "3"}, {70, "1"}}, P2(10, "0.0", "0.0"), {{42, "0.5"}},
                  P2(10, "10.0", "0.0"), {{40, "1.0"}, {41, "2.0"}}, P2(10, "10.0", "10.0")});
    ExpectRoundTrip(Cat({{{0, "LWPOLYLINE"}}, kR2000Entity, body}), true);
}

TEST(DxfEntityRoundTrip, LwPolylineBecomesPolylineInR12) {
    G body = Cat({{{100, "AcDbPolyline"}, {90, "2"}, {70, "1"}}, P2(10, "0.0", "0.0"), {{42, "0.5"}},
                  P2(10, "10.0", "0.0")});
    std::string error;
    auto db = FromDxf(File(Cat({{{0, "LWPOLYLINE"}}, kR2000Entity, body}), true), &error);
    ASSERT_TRUE(db) << error;
    G out = Entities(ToDxf(*db, DxfVersion::R12));
    G expected = Cat({{{0, "POLYLINE"}}, kR12Entity, {{66, "1"}}, P(10, "0.0", "0.0", "0.0"), {{70, "1"}},
                      {{0, "VERTEX"}}, kR12Entity, P(10, "0.0", "0.0", "0.0"), {{42, "0.5"}, {70, "0"}},
                      {{0, "VERTEX"}}, kR12Entity, P(10, "10.0", "0.0", "0.0"), {{70, "0"}},
                      {{0, "SEQEND"}}, kR12Entity});
    EXPECT_EQ(out, expected);
}

TEST(DxfEntityRoundTrip, EllipseAndSpline) {
    ExpectRoundTrip(Cat({{{0, "ELLIPSE"}}, kR2000Entity, {{100, "AcDbEllipse"}}, P(10, "1.0", "1.0", "0.0"),
                         P(11, "10.0", "0.0", "0.0"), {{40, "0.5"}, {41, "0.0"}, {42, "3.141592653589793"}}}),
                    true);
    G spline = Cat({{{100, "AcDbSpline"}, {70, "8"}, {71, "3"}, {72, "8"}, {73, "4"}, {74, "0"}, {42, "1e-10"},
                     {43, "1e-10"}, {40, "0.0"}, {40, "0.0"}, {40, "0.0"}, {40, "0.0"}, {40, "1.0"}, {40, "1.0"},
                     {40, "1.0"}, {40, "1.0"}},
                    P(10, "0.0", "0.0", "0.0"), P(10, "1.0", "2.0", "0.0"), P(10, "3.0", "2.0", "0.0"),
                    P(10, "4.0", "0.0", "0.0")});
    ExpectRoundTrip(Cat({{{0, "SPLINE"}}, kR2000Entity, spline}), true);
}

TEST(DxfEntityRoundTrip, HatchWithBothLoopKindsPatternAndSeeds) {
    G head = Cat({{{100, "AcDbHatch"}}, P(10, "0.0", "0.0", "0.0"), P(210, "0.0", "0.0", "1.0"),
                  {{2, "ANSI31"}, {70, "0"}, {71, "0"}, {91, "2"}}});
    G poly = Cat({{{92, "3"}, {72, "1"}, {73, "1"}, {93, "3"}}, P2(10, "0.0", "0.0"), {{42, "0.0"}},
                  P2(10, "10.0", "0.0"), {{42, "0.5"}}, P2(10, "10.0", "10.0"), {{42, "0.0"}}, {{97, "0"}}});
    G edges = Cat({{{92, "0"}, {93, "3"}, {72, "1"}}, P2(10, "1.0", "1.0"), P2(11, "2.0", "1.0"),
                   {{72, "2"}}, P2(10, "2.0", "2.0"), {{40, "1.0"}, {50, "270.0"}, {51, "90.0"}, {73, "1"}},
                   {{72, "3"}}, P2(10, "1.5", "3.0"), P2(11, "0.5", "0.0"), {{40, "0.5"}, {50, "0.0"}, {51, "180.0"}, {73, "0"}},
                   {{97, "0"}}});
    G pattern = Cat({{{75, "0"}, {76, "1"}, {52, "0.0"}, {41, "1.0"}, {77, "0"}, {78, "1"}, {53, "45.0"}, {43, "0.0"},
                      {44, "0.0"}, {45, "-0.0883883476483184"}, {46, "0.0883883476483184"}, {79, "2"}, {49, "0.5"},
                      {49, "-0.25"}, {98, "1"}},
                     P2(10, "5.0", "5.0")});
    ExpectRoundTrip(Cat({{{0, "HATCH"}}, kR2000Entity, head, poly, edges, pattern}), true);
}

TEST(DxfEntityRoundTrip, ModelerDataKeptLineForLine) {
    G data = {{100, "AcDbModelerGeometry"}, {70, "1"}, {1, "abc def"}, {3, "continued"}, {1, "ghi"}};
    ExpectRoundTrip(Cat({{{0, "REGION"}}, kR2000Entity, data}), true);
    ExpectRoundTrip(Cat({{{0, "3DSOLID"}}, kR2000Entity, data}), true);
    ExpectRoundTrip(Cat({{{0, "BODY"}}, kR2000Entity, data}), true);
}

TEST(DxfEntityRoundTrip, UnknownEntitiesKeepEveryGroup) {
    G dim = Cat({{{0, "DIMENSION"}}, kR2000Entity, {{100, "AcDbDimension"}, {2, "*D1"}}, P(10, "1.0", "2.0", "0.0"),
                 P(11, "0.5", "0.5", "0.0"), {{70, "32"}, {1, ""}, {100, "AcDbAlignedDimension"}},
                 P(13, "0.0", "0.0", "0.0"), P(14, "1.0", "0.0", "0.0"), {{100, "AcDbRotatedDimension"}}});
    ExpectRoundTrip(dim, true);
    G odd = Cat({{{0, "ACME_WIDGET"}}, kR2000Entity, {{100, "AcmeWidget"}, {8, "not a layer here"}, {40, "1.5"},
                  {1, "text"}, {90, "123456"}}, P(10, "1.0", "2.0", "3.0")});
    ExpectRoundTrip(odd, true);
    ExpectRoundTrip(Cat({{{0, "SHAPE"}}, kR12Entity, P(10, "1.0", "2.0", "0.0"), {{40, "1.0"}, {2, "BOX"}}}), false);
}

TEST(DxfEntityRoundTrip, UnknownGroupsStayWhereTheyStood) {
    // 77 means nothing to a line: it is kept between the two points
    G line = Cat({{{0, "LINE"}}, kR2000Entity, {{100, "AcDbLine"}}, P(10, "1.0", "2.0", "0.0"), {{77, "9"}},
                  P(11, "0.0", "0.0", "0.0")});
    ExpectRoundTrip(line, true);
}

TEST(DxfEntityRoundTrip, CommentsAreDropped) {
    G with = Cat({{{0, "LINE"}}, kR2000Entity, {{100, "AcDbLine"}, {999, "a comment"}}, P(10, "1.0", "2.0", "0.0"),
                  P(11, "0.0", "0.0", "0.0")});
    G without = Cat({{{0, "LINE"}}, kR2000Entity, {{100, "AcDbLine"}}, P(10, "1.0", "2.0", "0.0"),
                     P(11, "0.0", "0.0", "0.0")});
    std::string error;
    auto db = FromDxf(File(with, true), &error);
    ASSERT_TRUE(db) << error;
    EXPECT_EQ(Entities(ToDxf(*db)), without);
}

TEST(DxfEntityRoundTrip, ExtendedDataInBothVersions) {
    G xdata = Cat({{{1001, "ACAD"}, {1000, "text"}, {1002, "{"}, {1040, "1.5"}, {1070, "7"}, {1071, "70000"}},
                   P(1010, "1.0", "2.0", "3.0"), {{1005, "1F"}, {1004, "A0B1"}, {1002, "}"}}});
    G line12 = Cat({{{0, "LINE"}}, kR12Entity, P(10, "1.0", "2.0", "0.0"), P(11, "3.0", "4.0", "0.0"), xdata});
    ExpectRoundTrip(line12, false);
    G line = Cat({{{0, "LINE"}}, kR2000Entity, {{100, "AcDbLine"}}, P(10, "1.0", "2.0", "0.0"),
                  P(11, "3.0", "4.0", "0.0"), xdata});
    ExpectRoundTrip(line, true);
}
