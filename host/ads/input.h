// Where the host's interactive input comes from: text typed at the command
// line (WM_COPYDATA, scripts), then the scripted answers, one per line.
// When both are used up the user has pressed Esc.
#pragma once
#include <string>
#include <vector>

namespace lumo::host {

void PushTypedInput(const std::string& text);
// Takes all typed text not yet read.
std::string TakeTypedInput();
bool HasTypedInput();
// Reads one line of typed input; false if none is queued.
bool ReadTypedLine(std::string& line);

void SetAnswers(std::vector<std::string> lines);
// With interactive input, prompts are answered from standard input once the
// answers run out.
void SetInteractiveInput(bool on);
// The next line of input for a prompt; false means Esc.
bool ReadInputLine(std::string& line);

}  // namespace lumo::host
