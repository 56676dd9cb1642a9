#include "host/lisp/session.h"

#include <sys/stat.h>

#include <fstream>
#include <sstream>

#include "host/ads/output.h"
#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/local_path.h"
#include "host/lisp/reader.h"

namespace lumo::lisp {

void InitInterpreter() { InitBuiltins(); }

void ReportError(const std::string& message) {
    const Ref handler = Intern("*ERROR*")->value;
    if (IsFunction(handler) || handler.Is(Type::List)) {
        try {
            Ref arg = MakeStr(message);
            Apply(handler, Args(&arg, 1));
            return;
        } catch (const LispError& e) {
            host::WriteError("; error: " + std::string(e.what()) + "\n");
            return;
        }
    }
    host::WriteError("; error: " + message + "\n");
}

bool EvalTopLevel(const Ref& form, Ref* value) {
    try {
        Ref v = Eval(form);
        if (value) *value = std::move(v);
        return true;
    } catch (const LispError& e) {
        ReportError(e.what());
        return false;
    }
}

bool RunText(std::string_view text, Ref* last) {
    Reader reader(text);
    for (;;) {
        Ref form;
        try {
            if (!reader.Next(form)) return true;
        } catch (const LispError& e) {
            ReportError(e.what());
            return false;
        }
        if (!EvalTopLevel(form, last)) return false;
    }
}

std::vector<std::string>& SupportPath() {
    static std::vector<std::string> folders;
    return folders;
}

namespace {

bool IsRegularFile(const std::string& path) {
    struct stat st{};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

std::string FindFile(const std::string& given) {
    if (given.empty()) return {};
    const std::string name = LocalPath(given);
    if (name.empty()) return {};   // on a drive that is not mapped
    if (IsRegularFile(name)) return name;
    if (name[0] == '/') return {};
    std::vector<std::string> folders = SupportPath();
    if (std::string drawing = DrawingFolder(); !drawing.empty()) folders.push_back(drawing);  // searched last
    for (const std::string& folder : folders) {
        bool joined = folder.empty() || folder.back() == '/' || folder.back() == '\\';
        std::string candidate = LocalPath(joined ? folder + given : folder + "/" + given);
        if (IsRegularFile(candidate)) return candidate;
    }
    return {};
}

bool ReadWholeFile(const std::string& path, std::string& out) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    std::ostringstream buffer;
    buffer << in.rdbuf();
    out = buffer.str();
    return true;
}

Ref LoadFile(const std::string& path) {
    std::string text;
    if (!ReadWholeFile(path, text)) Fail("LOAD failed: \"" + path + "\"");
    Reader reader(text);
    Ref form, last;
    while (reader.Next(form)) last = Eval(form);
    return last;
}

namespace {

// (load name [onfailure]): ".lsp" is tried when the name has no extension.
Ref Load(Args a) {
    ArgCount(a, 1, 2);
    const std::string& name = StrArg(a[0]);
    std::string path = FindFile(name);
    if (path.empty() && name.find('.', name.find_last_of('/') + 1) == std::string::npos) path = FindFile(name + ".lsp");
    if (path.empty()) {
        if (a.size() > 1) return a[1];
        Fail("LOAD failed: \"" + name + "\"");
    }
    return LoadFile(path);
}

const BuiltinTable kSession{{{"load", Load}}};

}  // namespace

}  // namespace lumo::lisp
