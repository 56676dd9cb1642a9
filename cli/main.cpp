// lumo: runs LISP files and command scripts in a session of the embedded
// host with the lumo module loaded, the way the CAD host loads it.
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "cli/options.h"
#include "cli/repl.h"
#include "host/ads/commands.h"
#include "host/ads/input.h"
#include "host/ads/output.h"
#include "host/db/session.h"
#include "host/display/render.h"
#include "host/display/view.h"
#include "host/app/applications.h"
#include "host/lisp/builtins.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"
#include "host/win32/path_map.h"

namespace {

using namespace lumo;

enum ExitCode { kOk = 0, kLispError = 1, kUsage = 2, kFileError = 3 };

std::string ExecutableFolder() {
    char buf[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return ".";
    std::string path(buf, static_cast<size_t>(n));
    return path.substr(0, path.find_last_of('/'));
}

std::string DefaultModule() {
    const std::string folder = ExecutableFolder();
    for (const std::string& candidate : {folder + "/liblumo.so", folder + "/../lib/liblumo.so"})
        if (access(candidate.c_str(), R_OK) == 0) return candidate;
    return folder + "/liblumo.so";
}

bool ReadLines(const std::string& path, std::vector<std::string>& lines) {
    std::ifstream in(path);
    if (!in) return false;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return true;
}

// -x: the value is printed with prin1, as at the host's LISP prompt.
bool EvalExpression(const std::string& text) {
    lisp::Reader reader(text);
    lisp::Ref form, value;
    bool any = false;
    try {
        while (reader.Next(form)) {
            any = true;
            if (!lisp::EvalTopLevel(form, &value)) return false;
        }
    } catch (const lisp::LispError& e) {
        lisp::ReportError(e.what());
        return false;
    }
    if (any && value != lisp::Void()) host::WriteOutput(lisp::ToString(value, true) + "\n");
    return true;
}

bool IsScript(const std::string& path) {
    return path.size() > 4 && (path.compare(path.size() - 4, 4, ".scr") == 0 || path.compare(path.size() - 4, 4, ".SCR") == 0);
}

// Runs one action; returns an exit code (kOk when it succeeded).
int RunAction(const cli::Action& action) {
    switch (action.kind) {
    case cli::Action::Eval:
        return EvalExpression(action.text) ? kOk : kLispError;
    case cli::Action::Command:
        return host::RunCommand(action.text) ? kOk : kLispError;
    case cli::Action::Load:
    case cli::Action::File: {
        std::string text;
        if (!lisp::ReadWholeFile(action.text, text)) {
            host::WriteError("lumo: cannot read " + action.text + "\n");
            return kFileError;
        }
        if (action.kind == cli::Action::File && IsScript(action.text)) {
            host::PushTypedInput(text + "\n");
            return kOk;
        }
        return lisp::RunText(text) ? kOk : kLispError;
    }
    }
    return kOk;
}

}  // namespace

int main(int argc, char** argv) {
    cli::Options options;
    std::string error;
    if (!cli::ParseOptions(argc, argv, options, error)) {
        std::fprintf(stderr, "lumo: %s\n%s", error.c_str(), cli::UsageText());
        return kUsage;
    }
    if (options.help) {
        std::fputs(cli::UsageText(), stdout);
        return kOk;
    }
    if (options.version) {
        std::puts("lumo 0.1");
        return kOk;
    }
    // The files written at the end are named from the folder lumo starts in,
    // whatever folder a script changes to.
    for (std::string* path : {&options.render, &options.output})
        if (!path->empty()) *path = std::filesystem::absolute(*path).string();
    lisp::InitInterpreter();
    lisp::SupportPath() = options.supportPath;
    for (const std::string& drive : options.drives) {
        if (!win32::ParseDriveOption(drive)) {
            std::fprintf(stderr, "lumo: bad --drive value %s (expected X=DIR)\n", drive.c_str());
            return kUsage;
        }
    }
    if (!options.answersFile.empty()) {
        std::vector<std::string> answers;
        if (!ReadLines(options.answersFile, answers)) {
            std::fprintf(stderr, "lumo: cannot read %s\n", options.answersFile.c_str());
            return kFileError;
        }
        host::SetAnswers(std::move(answers));
    }
    const bool repl = options.repl || (options.actions.empty() && isatty(STDIN_FILENO));
    host::SetInteractiveInput(repl);
    if (!options.drawing.empty()) {
        std::string why;
        if (!db::OpenDrawing(options.drawing, why)) {
            host::WriteError("; error: " + why + "\n");
            return kFileError;
        }
        host::ResetViews();
    }

    const std::string module = options.modulePath.empty() ? DefaultModule() : options.modulePath;
    host::Application* app = host::LoadApplication(module, &error);
    if (!app) {
        std::fprintf(stderr, "lumo: cannot load the module: %s\n", error.c_str());
        return kFileError;
    }
    host::SendAppMessage(*app, AcRx::kLoadDwgMsg);

    int status = kOk;
    for (const cli::Action& action : options.actions) {
        int rc = RunAction(action);
        if (!host::ProcessTypedInput() && rc == kOk) rc = kLispError;
        if (rc != kOk) {
            status = rc;
            break;
        }
    }
    if (status == kOk && repl && !cli::RunRepl(options.quiet)) status = kOk;
    if (!options.render.empty()) {
        std::string why;
        if (!host::RenderDrawing(options.render, why)) {
            host::WriteError("; error: " + why + "\n");
            if (status == kOk) status = kFileError;
        }
    }
    if (status == kOk && !options.output.empty()) {
        std::string why;
        if (!db::SaveDrawing(options.output, why)) {
            host::WriteError("; error: " + why + "\n");
            status = kFileError;
        }
    }
    host::UnloadAllApplications();
    return status;
}
