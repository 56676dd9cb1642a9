// The host's command line: commands by name (the host's own and the c:
// functions of LISP and modules), and the text typed at the Command: prompt.
#pragma once
#include <string>
#include <vector>

namespace lumo::host {

// A host command reads its options through the ADS get functions, which
// take the text typed after the command name.
using CommandFn = void (*)();
void RegisterCommand(const std::string& name, CommandFn fn);

// Runs one command by name ("_ZOOM", "'ZOOM" and ".ZOOM" name ZOOM); false
// (and the host's message) when there is no such command.
bool RunCommand(const std::string& name);
// Processes all typed text: LISP expressions are evaluated and their values
// echoed, other words run as commands. Returns false if an error reached
// the top level.
bool ProcessTypedInput();
// Types the given answers at the Command: prompt and processes them, ahead
// of anything typed before.
bool RunCommandTokens(const std::vector<std::string>& tokens);

}  // namespace lumo::host
