// The command line of the lumo program.
#pragma once
#include <string>
#include <vector>

namespace lumo::cli {

struct Action {
    enum Kind { Eval, Load, Command, File } kind;
    std::string text;
};

struct Options {
    std::vector<Action> actions;      // in command-line order
    std::vector<std::string> supportPath;
    std::vector<std::string> drives;  // "C=/some/dir"
    std::string answersFile;
    std::string drawing;
    std::string output;
    std::string render;               // a picture of the drawing at the end
    std::string modulePath;
    bool repl = false;
    bool quiet = false;
    bool version = false;
    bool help = false;
};

// Parses argv; false with `error` set on a usage error.
bool ParseOptions(int argc, char** argv, Options& out, std::string& error);
const char* UsageText();

}  // namespace lumo::cli
