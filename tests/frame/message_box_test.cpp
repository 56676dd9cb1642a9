// The host's headless message boxes: printed, answered OK, or answered
// from the scripted input.
#include <gtest/gtest.h>

#include <string>

#include "host/ads/input.h"
#include "host/test_support.h"
#include "platform/msgbox.h"

namespace {

class MessageBoxes : public ::testing::Test {
protected:
    void TearDown() override { lumo::host::SetAnswers({}); }
};

}  // namespace

TEST_F(MessageBoxes, AnOkBoxPrintsAndAnswersAtOnce) {
    lumo::host::SetAnswers({"N"});
    CaptureOutput out;
    EXPECT_EQ(AfxMessageBox("Saved."), IDOK);
    EXPECT_EQ(out.Text(), "\nSaved.\n");
    std::string line;
    EXPECT_TRUE(lumo::host::ReadInputLine(line));   // the answer is left for others
    EXPECT_EQ(line, "N");
}

TEST_F(MessageBoxes, AQuestionTakesTheNextAnswerByItsFirstLetter) {
    lumo::host::SetAnswers({"no", "yes", " c", "r"});
    CaptureOutput out;
    EXPECT_EQ(MessageBoxA(nullptr, "Go on?", "lumo", MB_YESNO | MB_ICONQUESTION), IDNO);
    EXPECT_NE(out.Text().find("lumo: Go on?"), std::string::npos);
    EXPECT_EQ(AfxMessageBox("Again?", MB_YESNOCANCEL), IDYES);
    EXPECT_EQ(AfxMessageBox("Sure?", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(AfxMessageBox("Retry?", MB_RETRYCANCEL), IDRETRY);
}

TEST_F(MessageBoxes, AnUnknownOrEmptyAnswerTakesTheFirstButton) {
    lumo::host::SetAnswers({"", "maybe"});
    CaptureOutput out;
    EXPECT_EQ(AfxMessageBox("Sure?", MB_OKCANCEL), IDOK);
    EXPECT_EQ(AfxMessageBox("What?", MB_ABORTRETRYIGNORE), IDABORT);
}

TEST_F(MessageBoxes, NoInputLeftIsEscape) {
    lumo::host::SetAnswers({});
    CaptureOutput out;
    EXPECT_EQ(AfxMessageBox("Sure?", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(AfxMessageBox("Go on?", MB_YESNO), IDNO);
    EXPECT_EQ(AfxMessageBox("What?", MB_ABORTRETRYIGNORE), IDABORT);
}
