// The virtual display: views and ZOOM, pixels and world points, temporary
// vectors, picks answered from the scripted answers, and pictures.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "host/ads/commands.h"
#include "host/ads/input.h"
#include "host/display/display_list.h"
#include "host/display/render.h"
#include "host/display/view.h"
#include "lisp_test_support.h"
#include "platform/acdbads.h"
#include "platform/acedads.h"
#include "platform/acedgr.h"
#include "platform/acedwin.h"
#include "platform/acutads.h"

namespace {

using lumo::test::Show;

class Display : public ::testing::Test {
protected:
    void SetUp() override { acedRedraw(nullptr, 0); }
    static void Line(double x1, double y1, double x2, double y2) {
        ads_point a = {x1, y1, 0}, b = {x2, y2, 0};
        resbuf* line = acutBuildList(RTDXF0, "LINE", 10, a, 11, b, 0);
        ASSERT_EQ(acdbEntMake(line), RTNORM);
        acutRelRb(line);
    }
    static void Zoom(const std::vector<std::string>& options) {
        std::vector<std::string> tokens = {"ZOOM"};
        tokens.insert(tokens.end(), options.begin(), options.end());
        lumo::host::RunCommandTokens(tokens);
    }
};

TEST_F(Display, ZoomWindowPreviousAndScale) {
    Zoom({"W", "0,0", "40,10"});
    // A window wider than the screen's proportions sets the height from the width.
    EXPECT_EQ(Show("(getvar \"VIEWCTR\")"), "(20.0 5.0 0.0)");
    EXPECT_EQ(Show("(getvar \"VIEWSIZE\")"), "30.0");
    Zoom({"2X"});
    EXPECT_EQ(Show("(getvar \"VIEWSIZE\")"), "15.0");
    Zoom({"P"});
    EXPECT_EQ(Show("(getvar \"VIEWSIZE\")"), "30.0");
    Zoom({"C", "1,2", "8"});
    EXPECT_EQ(Show("(list (getvar \"VIEWCTR\") (getvar \"VIEWSIZE\"))"), "((1.0 2.0 0.0) 8.0)");
    EXPECT_EQ(Show("(setvar \"VIEWSIZE\" 3.0)"), "error: AutoCAD variable setting rejected: \"VIEWSIZE\" 3.0");
}

TEST_F(Display, ZoomExtentsFitsTheDrawingAndKeepsExtentsCurrent) {
    Line(-100, -50, 300, -50);
    EXPECT_EQ(Show("(getvar \"EXTMAX\")"), "(300.0 -50.0 0.0)");   // current without a regeneration
    Line(300, -50, 300, 250);
    Zoom({"E"});
    EXPECT_EQ(Show("(getvar \"EXTMIN\")"), "(-100.0 -50.0 0.0)");
    EXPECT_EQ(Show("(getvar \"EXTMAX\")"), "(300.0 250.0 0.0)");
    EXPECT_EQ(Show("(getvar \"VIEWCTR\")"), "(100.0 100.0 0.0)");
    EXPECT_EQ(Show("(getvar \"VIEWSIZE\")"), "300.0");
}

TEST_F(Display, PixelsAndWorldPointsAreInverse) {
    Zoom({"C", "50,50", "100"});
    ads_point world;
    ASSERT_TRUE(acedCoordFromPixelToWorld(-1, POINT{0, 0}, world));
    // 1024 x 768 pixels: the top left is half a width left, half a height up.
    EXPECT_NEAR(world[0], 50 - 512 * 100.0 / 768, 1e-9);
    EXPECT_NEAR(world[1], 100, 1e-9);
    POINT back{};
    ASSERT_TRUE(acedCoordFromWorldToPixel(-1, world, back));
    EXPECT_EQ(back.x, 0);
    EXPECT_EQ(back.y, 0);
}

TEST_F(Display, TemporaryVectorsLastUntilARedraw) {
    EXPECT_EQ(Show("(grdraw '(0 0) '(10 0) 1)"), "nil");
    EXPECT_EQ(Show("(grvecs '(2 (0 0) (1 1) -3 (1 1) (2 0)) '((1 0 0 5) (0 1 0 0) (0 0 1 0) (0 0 0 1)))"), "nil");
    const auto& v = lumo::host::ScreenVectors();
    ASSERT_EQ(v.size(), 3u);
    EXPECT_EQ(v[1].color, 2);
    EXPECT_DOUBLE_EQ(v[1].from[0], 5.0);   // moved by the matrix
    EXPECT_EQ(v[2].color, 3);
    EXPECT_TRUE(v[2].highlight);           // a negative colour draws highlighted
    EXPECT_EQ(Show("(grvecs '((0 0)))"), "error: bad argument type: grvecs");
    EXPECT_EQ(Show("(grvecs '(1 (0 0) (1 1) \"x\"))"), "error: bad argument type: fixnump: \"x\"");
    lumo::host::RunCommandTokens({"REDRAW"});
    EXPECT_TRUE(lumo::host::ScreenVectors().empty());
}

TEST_F(Display, EntselPicksTheNearestEntityFromTheAnswers) {
    Zoom({"C", "0,0", "100"});
    Line(0, 0, 10, 0);
    Line(0, 1, 10, 1);
    lumo::host::SetAnswers({"5,0.9", "50,50", ""});
    EXPECT_EQ(Show("(cdr (assoc 10 (entget (car (entsel)))))"), "(0.0 1.0 0.0)");
    EXPECT_EQ(Show("(entsel \"\\nPick: \")"), "nil");   // nothing there
    EXPECT_EQ(Show("(getvar \"ERRNO\")"), "7");
    EXPECT_EQ(Show("(entsel)"), "nil");                 // an empty answer
    EXPECT_EQ(Show("(getvar \"ERRNO\")"), "52");
    lumo::host::SetAnswers({});
}

TEST_F(Display, PicturesShowTheDrawingAndTheVectors) {
    Line(0, 0, 10, 10);
    ads_point a = {0, 10, 0}, b = {10, 0, 0};
    acedGrDraw(a, b, 1, 0);
    std::string svg = ::testing::TempDir() + "display_test.svg", error;
    ASSERT_TRUE(lumo::host::RenderDrawing(svg, error)) << error;
    std::ifstream in(svg);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_NE(text.str().find("<svg"), std::string::npos);
    EXPECT_NE(text.str().find("stroke=\"#FF0000\""), std::string::npos);   // the red vector
    std::remove(svg.c_str());
    EXPECT_FALSE(lumo::host::RenderDrawing(::testing::TempDir() + "picture.bmp", error));
    EXPECT_FALSE(lumo::host::RenderDrawing("/no/such/folder/x.svg", error));
}

}  // namespace
