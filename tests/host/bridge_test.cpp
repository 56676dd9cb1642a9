// The border between LISP and a module: argument chains, results, commands.
#include <gtest/gtest.h>

#include <cstring>

#include "host/ads/commands.h"
#include "host/ads/input.h"
#include "host/app/applications.h"
#include "host/lisp/resbuf_convert.h"
#include "host/test_support.h"
#include "lisp_test_support.h"
#include "platform/acedads.h"
#include "platform/acutads.h"

using lumo::test::Show;

namespace {

std::string gSeen;  // the argument types of the last echo call

std::string Types(const resbuf* rb) {
    std::string s;
    for (; rb; rb = rb->rbnext) s += std::to_string(rb->restype) + " ";
    return s;
}

int Twice() {
    const resbuf* rb = acedGetArgs();
    if (!rb || rb->restype != RTSHORT) return RSERR;
    acedRetInt(rb->resval.rint * 2);
    return RSRSLT;
}

AcRx::AppRetCode Entry(AcRx::AppMsgCode msg, void*) {
    if (msg == AcRx::kLoadDwgMsg) {
        acedDefun("t_echo", 0);
        acedDefun("c:t_hello", 1);
        acedDefun("t_void", 2);
        acedDefun("t_none", 3);
        acedDefun("t_twice", 4);
        acedRegFunc(Twice, 4);
        acedDefun("t_invoke", 5);
    } else if (msg == AcRx::kInvkSubrMsg) {
        switch (acedGetFunCode()) {
        case 0:
            gSeen = Types(acedGetArgs());
            acedRetList(acedGetArgs());
            break;
        case 1: acutPrintf("hello from the module"); acedRetVoid(); break;
        case 2: acedRetVoid(); break;
        case 3: break;
        case 5: {
            resbuf* call = acutBuildList(RTSTR, "+", RTSHORT, 2, RTREAL, 0.5, 0);
            resbuf* result = nullptr;
            if (acedInvoke(call, &result) == RTNORM) acedRetVal(result);
            acutRelRb(call);
            acutRelRb(result);
            break;
        }
        default: break;
        }
    }
    return AcRx::kRetOK;
}

void LoadTestApp() {
    static lumo::host::Application* app = [] {
        lumo::lisp::InitInterpreter();
        auto* a = lumo::host::AddApplication("bridge_test", Entry);
        lumo::host::SendAppMessage(*a, AcRx::kLoadDwgMsg);
        return a;
    }();
    (void)app;
}

}  // namespace

TEST(Bridge, ArgumentsFollowTheDocumentedConversion) {
    LoadTestApp();
    EXPECT_EQ(Show("(t_echo 1 32768 2.5 \"s\")"), "(1 32768 2.5 \"s\")");
    EXPECT_EQ(gSeen, "5003 5010 5001 5005 ");
    EXPECT_EQ(Show("(t_echo '(1.0 2.0) '(1.0 2.0 3.0))"), "((1.0 2.0) (1.0 2.0 3.0))");
    EXPECT_EQ(gSeen, "5002 5009 ");
    // Integers are no point: the list stays a list (and a result chain that
    // is one whole list is that list).
    EXPECT_EQ(Show("(t_echo '(1 2))"), "(1 2)");
    EXPECT_EQ(gSeen, "5016 5003 5003 5017 ");
    EXPECT_EQ(Show("(t_echo '(8 . \"WALL\") T nil)"), "((8 . \"WALL\") T nil)");
    EXPECT_EQ(gSeen, "5016 5003 5018 5005 5017 5021 5019 ");
    EXPECT_EQ(Show("(t_echo)"), "nil");
}

TEST(Bridge, ResultsComeBackAsLispValues) {
    LoadTestApp();
    EXPECT_EQ(Show("(t_none)"), "nil");
    EXPECT_EQ(Show("(type (t_void))"), "SYM");
    EXPECT_EQ(Show("(t_twice 21)"), "42");
    EXPECT_EQ(Show("(t_twice \"x\")"), "error: ADS request error");
    EXPECT_EQ(Show("(t_invoke)"), "2.5");
    EXPECT_EQ(Show("(type t_echo)"), "EXRXSUBR");
}

TEST(Bridge, ListChainsWithOneOuterListAreThatList) {
    resbuf* chain = acutBuildList(RTLB, RTSHORT, 1, RTLB, RTSHORT, 2, RTDOTE, RTSHORT, 3, RTLE, RTLE, 0);
    EXPECT_EQ(lumo::lisp::ToString(lumo::lisp::FromResbufChain(chain), true), "(1 (2 . 3))");
    acutRelRb(chain);
    chain = acutBuildList(RTSHORT, 1, RTSTR, "a", 0);
    EXPECT_EQ(lumo::lisp::ToString(lumo::lisp::FromResbufChain(chain), true), "(1 \"a\")");
    acutRelRb(chain);
}

TEST(Bridge, EntityListsGroupExtendedData) {
    LoadTestApp();
    lumo::lisp::Ref list = lumo::test::Run(
        "'((0 . \"LINE\") (10 1.0 2.0 0.0) (40 . 2.5) (-3 (\"APP\" (1000 . \"x\") (1070 . 7))))");
    resbuf* chain = nullptr;
    ASSERT_TRUE(lumo::lisp::ToEntityChain(list, &chain));
    EXPECT_EQ(Types(chain), "0 10 40 -3 1001 1000 1070 ");
    EXPECT_EQ(lumo::lisp::ToString(lumo::lisp::FromEntityChain(chain), true),
              "((0 . \"LINE\") (10 1.0 2.0 0.0) (40 . 2.5) (-3 (\"APP\" (1000 . \"x\") (1070 . 7))))");
    acutRelRb(chain);
    EXPECT_FALSE(lumo::lisp::ToEntityChain(lumo::test::Run("'((40 . \"no real\"))"), &chain));
    EXPECT_EQ(chain, nullptr);
}

TEST(Commands, CFunctionsRunAtTheCommandPrompt) {
    LoadTestApp();
    CaptureOutput out;
    lumo::host::PushTypedInput("t_hello\n(+ 1 2)\nNOSUCH\n");
    EXPECT_FALSE(lumo::host::ProcessTypedInput());
    EXPECT_EQ(out.Text(), "Command: t_hello\nhello from the module3\nCommand: NOSUCH\n"
                          "Unknown command \"NOSUCH\".  Press F1 for help.\n");
}

TEST(Commands, ATransparentCommandReadsItsOptionFromTheTypedText) {
    CaptureOutput out;
    lumo::host::PushTypedInput("'ZOOM\nD\n");
    EXPECT_TRUE(lumo::host::ProcessTypedInput());
    EXPECT_NE(out.Text().find("<real time>: D\n"), std::string::npos);
    EXPECT_FALSE(lumo::host::HasTypedInput());
}

TEST(Prompts, AnswersComeFromTheScriptAndEndInEsc) {
    CaptureOutput out;
    lumo::host::SetAnswers({"abc def", "x", "12", "", "Yes"});
    EXPECT_EQ(Show("(getstring \"Name: \")"), "\"abc\"");
    EXPECT_EQ(Show("(getint \"N: \")"), "12");  // "x" is refused and asked again
    EXPECT_EQ(Show("(getreal)"), "nil");         // an empty answer
    EXPECT_EQ(Show("(initget \"Yes No\") (getkword \"Go? \")"), "\"Yes\"");
    EXPECT_EQ(Show("(getpoint)"), "error: Function cancelled");
    EXPECT_NE(out.Text().find("Requires an integer value."), std::string::npos);
}
