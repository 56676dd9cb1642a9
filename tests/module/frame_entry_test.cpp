// The module loaded the way the host loads it: entry messages, the banner,
// the function table and the message filters.
#include <gtest/gtest.h>

#include "host/ads/input.h"
#include "host/app/applications.h"
#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"
#include "host/sysvars/sysvars.h"
#include "host/test_support.h"
#include "host/win/main_window.h"
#include "platform/acedads.h"
#include "platform/win32.h"

namespace {

using namespace lumo;

std::string Show(const std::string& text) {
    try {
        return lisp::ToString(lisp::Eval(lisp::ReadOne(text)), true);
    } catch (const lisp::LispError& e) {
        return std::string("error: ") + e.what();
    }
}

class ModuleTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        lisp::InitInterpreter();
        CaptureOutput out;
        std::string error;
        s_app = host::LoadApplication(LUMO_MODULE_PATH, &error);
        ASSERT_NE(s_app, nullptr) << error;
        host::SendAppMessage(*s_app, AcRx::kLoadDwgMsg);
        s_banner = out.Text();
    }
    static inline host::Application* s_app = nullptr;
    static inline std::string s_banner;
};

TEST_F(ModuleTest, LoadingPrintsTheBannerOnce) {
    const std::string banner = "\n***  == AutoCAD 应用程序开发接口LuMo_API For ACAD 2000 Build 20506 ==  ***\n\n";
    EXPECT_EQ(s_banner, banner);
    EXPECT_TRUE(s_app->unlocked);
    EXPECT_TRUE(s_app->mdiAware);
    // A second load of the same path is the loaded application.
    EXPECT_EQ(host::LoadApplication(LUMO_MODULE_PATH, nullptr), s_app);
}

TEST_F(ModuleTest, FrameFunctionsAnswerThroughTheTable) {
    EXPECT_EQ(Show("(lumo_ucson)"), "1");
    EXPECT_EQ(Show("(type (lumo_ucsoff))"), "SYM");
    EXPECT_EQ(Show("(lumo_maskesc)"), "T");
    EXPECT_EQ(Show("(lumo_maskesc)"), "T");
    EXPECT_TRUE(host::DeliverMessage(WM_KEYDOWN, VK_ESCAPE, 0));
    EXPECT_EQ(Show("(lumo_resesc)"), "T");
    EXPECT_FALSE(host::DeliverMessage(WM_KEYDOWN, VK_ESCAPE, 0));
    acedUsrBrk();
    CaptureOutput out;
    EXPECT_EQ(Show("(TEMP 1.0)"), "nil");
    EXPECT_EQ(Show("(TEMP \"s\" 1)"), "nil");
    EXPECT_EQ(out.Text(), "50015005");
}

TEST_F(ModuleTest, PaintAfterAnExplodeTypesTheLinkCommand) {
    host::SetSysVar("CMDACTIVE", host::ShortVar(1), true);
    host::SetSysVar("CMDNAMES", host::StringVar("EXPLODE"), true);
    host::DeliverMessage(WM_PAINT, 0, 0);
    EXPECT_FALSE(host::HasTypedInput());  // nothing while the command runs
    host::SetSysVar("CMDACTIVE", host::ShortVar(0), true);
    host::SetSysVar("CMDNAMES", host::StringVar(""), true);
    host::DeliverMessage(WM_PAINT, 0, 0);
    EXPECT_EQ(host::TakeTypedInput(), "'lumo_savsslink\n");
    host::DeliverMessage(WM_PAINT, 0, 0);  // once only
    EXPECT_FALSE(host::HasTypedInput());
}

TEST_F(ModuleTest, TabDuringZoomTypesNothing) {
    host::SetSysVar("CMDNAMES", host::StringVar("zoom"), true);
    host::DeliverMessage(WM_CHAR, VK_TAB, 0);
    EXPECT_FALSE(host::HasTypedInput());
    host::SetSysVar("CMDNAMES", host::StringVar(""), true);
}

TEST_F(ModuleTest, UnloadingADrawingRemovesTheKeyFilterUntilTheHotkeyCommand) {
    const int before = host::FilterCount();
    host::SendAppMessage(*s_app, AcRx::kUnloadDwgMsg);
    EXPECT_EQ(host::FilterCount(), before - 1);
    host::DeliverMessage(WM_CHAR, VK_TAB, 0);
    EXPECT_FALSE(host::HasTypedInput());
    host::SendAppMessage(*s_app, AcRx::kLoadDwgMsg);
    EXPECT_EQ(host::FilterCount(), before - 1);  // a new drawing does not put it back

    // The hot-key command asks first. Hot keys still count as on, so it
    // offers to turn them off; the second call offers to turn them on, and
    // Enter takes the default.
    CaptureOutput out;
    host::SetAnswers({"Yes", ""});
    EXPECT_EQ(Show("(type (c:lumo_hotkey))"), "SYM");
    EXPECT_EQ(host::FilterCount(), before - 1);
    Show("(c:lumo_hotkey)");
    EXPECT_EQ(host::FilterCount(), before);
    EXPECT_NE(out.Text().find("是否关闭热键定义?<Yes>:Yes"), std::string::npos);
    EXPECT_NE(out.Text().find("是否开启热键定义?<Yes>:"), std::string::npos);
}

}  // namespace
