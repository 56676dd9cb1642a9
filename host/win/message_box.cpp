// Headless message boxes: the text goes to the command line and the answer
// comes from the scripted input, so a script can drive every question.
#include <cctype>
#include <string>

#include "host/ads/input.h"
#include "host/ads/output.h"
#include "platform/msgbox.h"

namespace {

struct ButtonSet {
    const int* buttons;
    int count;
    int onEscape;
};

constexpr int kOk[] = {IDOK};
constexpr int kOkCancel[] = {IDOK, IDCANCEL};
constexpr int kAbortRetryIgnore[] = {IDABORT, IDRETRY, IDIGNORE};
constexpr int kYesNoCancel[] = {IDYES, IDNO, IDCANCEL};
constexpr int kYesNo[] = {IDYES, IDNO};
constexpr int kRetryCancel[] = {IDRETRY, IDCANCEL};

ButtonSet ButtonsOf(UINT type) {
    switch (type & MB_TYPEMASK) {
    case MB_OKCANCEL: return {kOkCancel, 2, IDCANCEL};
    case MB_ABORTRETRYIGNORE: return {kAbortRetryIgnore, 3, IDABORT};
    case MB_YESNOCANCEL: return {kYesNoCancel, 3, IDCANCEL};
    case MB_YESNO: return {kYesNo, 2, IDNO};
    case MB_RETRYCANCEL: return {kRetryCancel, 2, IDCANCEL};
    default: return {kOk, 1, IDOK};
    }
}

char LetterOf(int button) {
    switch (button) {
    case IDOK: return 'O';
    case IDCANCEL: return 'C';
    case IDABORT: return 'A';
    case IDRETRY: return 'R';
    case IDIGNORE: return 'I';
    case IDYES: return 'Y';
    default: return 'N';
    }
}

// The first non-blank letter of the answer picks the button.
int ButtonFromAnswer(const std::string& answer, const ButtonSet& set) {
    size_t i = answer.find_first_not_of(" \t");
    if (i == std::string::npos) return set.buttons[0];
    char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(answer[i])));
    for (int b = 0; b < set.count; ++b)
        if (LetterOf(set.buttons[b]) == letter) return set.buttons[b];
    return set.buttons[0];
}

}  // namespace

int MessageBoxA(HWND, const char* text, const char* caption, UINT type) {
    std::string shown = "\n";
    if (caption && *caption) shown += std::string(caption) + ": ";
    shown += text ? text : "";
    shown += "\n";
    lumo::host::WriteOutput(shown);
    ButtonSet set = ButtonsOf(type);
    if (set.count == 1) return set.buttons[0];
    std::string answer;
    if (!lumo::host::ReadInputLine(answer)) return set.onEscape;
    return ButtonFromAnswer(answer, set);
}

int AfxMessageBox(const char* text, UINT type, UINT) { return MessageBoxA(nullptr, text, nullptr, type); }
