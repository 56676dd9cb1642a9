#include "cli/options.h"

#include <cstring>

namespace lumo::cli {

const char* UsageText() {
    return "usage: lumo [options] [FILE.lsp | FILE.scr ...]\n"
           "Runs LISP files and command scripts in one session with the lumo module loaded.\n"
           "\n"
           "  -x, --eval EXPR          evaluate EXPR and print its value (repeatable)\n"
           "  -l, --load FILE          load a LISP file\n"
           "  -c, --command NAME       run the command c:NAME\n"
           "  -L, --support-path DIR   folder searched by load and findfile (repeatable)\n"
           "  -d, --drawing FILE       open FILE (DXF) as the session's drawing\n"
           "  -o, --output FILE        save the drawing to FILE at the end\n"
           "      --render FILE        draw the drawing and the screen's vectors at the\n"
           "                           end into FILE (.svg, or .png)\n"
           "      --answers FILE       answers for prompts and dialogs, one per line\n"
           "      --drive X=DIR        map the drive letter X: to the folder DIR\n"
           "      --module PATH        the module to load (default: liblumo.so beside lumo)\n"
           "  -i                       interactive session (the default on a terminal)\n"
           "  -q                       quiet: no greeting\n"
           "  -V, --version            print the version\n"
           "  -h, --help               print this help\n"
           "\n"
           "Exit status: 0 success, 1 an error reached the top level, 2 usage error,\n"
           "3 a file could not be read or written.\n";
}

bool ParseOptions(int argc, char** argv, Options& out, std::string& error) {
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&](std::string& into) {
            size_t eq = arg.find('=');
            if (arg.rfind("--", 0) == 0 && eq != std::string::npos) {
                into = arg.substr(eq + 1);
                return true;
            }
            if (i + 1 >= argc) {
                error = "option " + arg + " needs a value";
                return false;
            }
            into = argv[++i];
            return true;
        };
        auto is = [&](const char* s, const char* l) {
            if (arg == s || arg == l) return true;
            return std::strlen(l) > 0 && arg.rfind(std::string(l) + "=", 0) == 0;
        };
        std::string v;
        if (is("-x", "--eval")) { if (!value(v)) return false; out.actions.push_back({Action::Eval, v}); }
        else if (is("-l", "--load")) { if (!value(v)) return false; out.actions.push_back({Action::Load, v}); }
        else if (is("-c", "--command")) { if (!value(v)) return false; out.actions.push_back({Action::Command, v}); }
        else if (is("-L", "--support-path")) { if (!value(v)) return false; out.supportPath.push_back(v); }
        else if (is("-d", "--drawing")) { if (!value(out.drawing)) return false; }
        else if (is("-o", "--output")) { if (!value(out.output)) return false; }
        else if (is("", "--render")) { if (!value(out.render)) return false; }
        else if (is("", "--answers")) { if (!value(out.answersFile)) return false; }
        else if (is("", "--drive")) { if (!value(v)) return false; out.drives.push_back(v); }
        else if (is("", "--module")) { if (!value(out.modulePath)) return false; }
        else if (arg == "-i") out.repl = true;
        else if (arg == "-q") out.quiet = true;
        else if (arg == "-V" || arg == "--version") out.version = true;
        else if (arg == "-h" || arg == "--help") out.help = true;
        else if (arg.size() > 1 && arg[0] == '-') { error = "unknown option " + arg; return false; }
        else out.actions.push_back({Action::File, arg});
    }
    return true;
}

}  // namespace lumo::cli
