// System variables, coordinate systems and the main window's messages.
#include <gtest/gtest.h>

#include <cstdlib>

#include "host/ads/input.h"
#include "host/sysvars/sysvars.h"
#include "host/win/main_window.h"
#include "lisp_test_support.h"
#include "platform/acedads.h"
#include "platform/acedwin.h"

using lumo::test::Show;

TEST(SysVars, TypedReadOnlyAndCaseInsensitive) {
    EXPECT_EQ(Show("(getvar \"acadver\")"), "\"15.0\"");
    EXPECT_EQ(Show("(getvar \"NOSUCHVAR\")"), "nil");
    EXPECT_EQ(Show("(setvar \"OSMODE\" 33) (getvar \"osmode\")"), "33");
    EXPECT_EQ(Show("(setvar \"CDATE\" 1.0)"), "error: AutoCAD variable setting rejected: \"CDATE\" 1.0");
    EXPECT_EQ(Show("(setvar \"OSMODE\" \"x\")"), "error: AutoCAD variable setting rejected: \"OSMODE\" \"x\"");
    EXPECT_EQ(Show("(setvar \"TEXTSIZE\" 3) (getvar \"TEXTSIZE\")"), "3.0");
    resbuf rb{};
    ASSERT_EQ(acedGetVar("CLAYER", &rb), RTNORM);
    EXPECT_STREQ(rb.resval.rstring, "0");
    std::free(rb.resval.rstring);
    // CDATE reads YYYYMMDD.HHMMSS...
    lumo::lisp::Ref cdate = lumo::test::Run("(getvar \"CDATE\")");
    EXPECT_GT(lumo::lisp::NumberOf(cdate), 20200101.0);
    EXPECT_LT(lumo::lisp::NumberOf(cdate), 21000101.0);
}

TEST(Coordinates, UcsAndEcs) {
    using lumo::host::PointVar;
    using lumo::host::SetSysVar;
    SetSysVar("UCSORG", PointVar(10, 0, 0), true);
    SetSysVar("UCSXDIR", PointVar(0, 1, 0), true);
    SetSysVar("UCSYDIR", PointVar(-1, 0, 0), true);
    ads_point p = {1, 0, 0}, out;
    resbuf ucs{}, wcs{};
    ucs.restype = wcs.restype = RTSHORT;
    ucs.resval.rint = 1;
    wcs.resval.rint = 0;
    ASSERT_EQ(acedTrans(p, &ucs, &wcs, 0, out), RTNORM);
    EXPECT_NEAR(out[0], 10, 1e-12);
    EXPECT_NEAR(out[1], 1, 1e-12);
    ASSERT_EQ(acedTrans(p, &ucs, &wcs, 1, out), RTNORM);  // a displacement ignores the origin
    EXPECT_NEAR(out[0], 0, 1e-12);
    EXPECT_NEAR(out[1], 1, 1e-12);
    acdbWcs2Ucs(out, out, true);
    EXPECT_NEAR(out[0], 1, 1e-12);
    SetSysVar("UCSORG", PointVar(0, 0, 0), true);
    SetSysVar("UCSXDIR", PointVar(1, 0, 0), true);
    SetSysVar("UCSYDIR", PointVar(0, 1, 0), true);

    // The ECS of the normal (0 0 -1) mirrors x.
    resbuf ecs{};
    ecs.restype = RT3DPOINT;
    ecs.resval.rpoint[2] = -1;
    ASSERT_EQ(acedTrans(p, &wcs, &ecs, 0, out), RTNORM);
    EXPECT_NEAR(out[0], -1, 1e-12);
}

namespace {
int gSeen = 0;
BOOL SwallowChars(MSG* m) {
    ++gSeen;
    return m->message == WM_CHAR;
}
}  // namespace

TEST(MainWindow, FiltersSeeMessagesAndMaySwallowThem) {
    ASSERT_TRUE(acedRegisterFilterWinMsg(SwallowChars));
    EXPECT_TRUE(lumo::host::DeliverMessage(WM_CHAR, 'a', 0));
    EXPECT_FALSE(lumo::host::DeliverMessage(WM_PAINT, 0, 0));
    EXPECT_EQ(gSeen, 2);
    EXPECT_TRUE(acedRemoveFilterWinMsg(SwallowChars));
    EXPECT_FALSE(acedRemoveFilterWinMsg(SwallowChars));
    EXPECT_FALSE(lumo::host::DeliverMessage(WM_CHAR, 'a', 0));
    EXPECT_EQ(gSeen, 2);
    // Esc that no filter takes is the user's break.
    EXPECT_FALSE(lumo::host::DeliverMessage(WM_KEYDOWN, VK_ESCAPE, 0));
    EXPECT_EQ(acedUsrBrk(), 1);
    EXPECT_EQ(acedUsrBrk(), 0);
}

TEST(MainWindow, CopyDataTypesText) {
    const char text[] = "'ZOOM\nD\n";
    COPYDATASTRUCT data{1, sizeof text, const_cast<char*>(text)};
    EXPECT_EQ(SendMessageA(adsw_acadMainWnd(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), 1);
    EXPECT_EQ(lumo::host::TakeTypedInput(), "'ZOOM\nD\n");
    data.dwData = 2;
    EXPECT_EQ(SendMessageA(adsw_acadMainWnd(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), 0);
    EXPECT_FALSE(lumo::host::HasTypedInput());
}

TEST(MainWindow, PixelsMapToTheViewAndBack) {
    ads_point world;
    ASSERT_TRUE(acedCoordFromPixelToWorld(-1, POINT{512, 384}, world));   // the middle: VIEWCTR
    resbuf ctr;
    ASSERT_EQ(acedGetVar("VIEWCTR", &ctr), RTNORM);
    EXPECT_NEAR(world[0], ctr.resval.rpoint[0], 1e-9);
    EXPECT_NEAR(world[1], ctr.resval.rpoint[1], 1e-9);
    POINT pixel{};
    ads_point p = {10, 20, 0};
    ASSERT_TRUE(acedCoordFromWorldToPixel(-1, p, pixel));
    ASSERT_TRUE(acedCoordFromPixelToWorld(-1, pixel, world));
    EXPECT_NEAR(world[0], 10, 0.2);
    EXPECT_NEAR(world[1], 20, 0.2);
}
