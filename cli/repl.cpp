#include "cli/repl.h"

#include <cstdio>
#include <iostream>
#include <string>

#ifdef LUMO_HAVE_READLINE
#include <readline/history.h>
#include <readline/readline.h>
#endif

#include "host/ads/commands.h"
#include "host/ads/output.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"

namespace lumo::cli {
namespace {

bool ReadLine(const char* prompt, std::string& line) {
#ifdef LUMO_HAVE_READLINE
    char* text = readline(prompt);
    if (!text) return false;
    line = text;
    if (!line.empty()) add_history(text);
    std::free(text);
    return true;
#else
    std::fputs(prompt, stdout);
    std::fflush(stdout);
    return static_cast<bool>(std::getline(std::cin, line));
#endif
}

// Evaluates each form of the input and prints its value with prin1.
bool EvalAndPrint(const std::string& text) {
    lisp::Reader reader(text);
    bool ok = true;
    for (;;) {
        lisp::Ref form, value;
        try {
            if (!reader.Next(form)) break;
        } catch (const lisp::LispError& e) {
            lisp::ReportError(e.what());
            return false;
        }
        if (lisp::EvalTopLevel(form, &value)) {
            if (value != lisp::Void()) host::WriteOutput(lisp::ToString(value, true) + "\n");
        } else {
            ok = false;
        }
        ok = host::ProcessTypedInput() && ok;
    }
    return ok;
}

}  // namespace

bool RunRepl(bool quiet) {
    if (!quiet) host::WriteOutput("lumo interactive session; end with Ctrl-D.\n");
    bool ok = true;
    std::string pending, line;
    while (ReadLine(pending.empty() ? "_$ " : "", line)) {
        pending += line + "\n";
        if (!lisp::IsBalanced(pending)) continue;
        ok = EvalAndPrint(pending) && ok;
        pending.clear();
    }
    host::WriteOutput("\n");
    return ok;
}

}  // namespace lumo::cli
