#include "host/ads/commands.h"

#include <cctype>
#include <cstdarg>
#include <map>

#include "host/ads/input.h"
#include "host/ads/output.h"
#include "host/ads/prompts.h"
#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/printer.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"
#include "host/sysvars/sysvars.h"
#include "platform/acedads.h"

namespace lumo::host {
namespace {

std::map<std::string, CommandFn>& Commands() {
    static std::map<std::string, CommandFn> commands;
    return commands;
}

std::string Upper(std::string s) {
    for (char& c : s) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return s;
}

// Marks a command as running for CMDACTIVE and CMDNAMES; a transparent
// command nests inside the one it interrupts.
class ActiveCommand {
public:
    explicit ActiveCommand(const std::string& name, bool transparent) {
        GetSysVar("CMDACTIVE", m_active);
        GetSysVar("CMDNAMES", m_names);
        SysVarValue active = m_active;
        active.i = transparent ? (m_active.i | 2) : (m_active.i | 1);
        SetSysVar("CMDACTIVE", active, true);
        SetSysVar("CMDNAMES", StringVar(m_names.s.empty() ? name : m_names.s + "'" + name), true);
    }
    ~ActiveCommand() {
        SetSysVar("CMDACTIVE", m_active, true);
        SetSysVar("CMDNAMES", m_names, true);
    }
    ActiveCommand(const ActiveCommand&) = delete;
    ActiveCommand& operator=(const ActiveCommand&) = delete;
private:
    SysVarValue m_active, m_names;
};


}  // namespace

void RegisterCommand(const std::string& name, CommandFn fn) { Commands()[Upper(name)] = fn; }

bool RunCommand(const std::string& typed) {
    std::string name = typed;
    bool transparent = false;
    while (!name.empty() && (name[0] == '_' || name[0] == '.' || name[0] == '-' || name[0] == '\'')) {
        transparent = transparent || name[0] == '\'';
        name.erase(0, 1);
    }
    name = Upper(name);
    const lisp::Ref fn = lisp::Intern("C:" + name)->value;
    if (lisp::IsFunction(fn) || fn.Is(lisp::Type::List)) {
        ActiveCommand active(name, transparent);
        return lisp::EvalTopLevel(lisp::ListOf({lisp::Sym("C:" + name)}));
    }
    auto it = Commands().find(name);
    if (it == Commands().end()) {
        WriteOutput("Unknown command \"" + name + "\".  Press F1 for help.\n");
        return false;
    }
    ActiveCommand active(name, transparent);
    it->second();
    return true;
}

bool ProcessTypedInput() {
    bool ok = true;
    while (HasTypedInput()) {
        std::string text = TakeTypedInput();
        size_t pos = 0;
        while (pos < text.size() && std::isspace(static_cast<unsigned char>(text[pos]))) ++pos;
        if (pos == text.size()) continue;
        if (text[pos] == '(') {
            lisp::Reader reader(std::string_view(text).substr(pos));
            lisp::Ref form, value;
            try {
                reader.Next(form);
            } catch (const lisp::LispError& e) {
                lisp::ReportError(e.what());
                return false;
            }
            PushTypedInput(text.substr(pos + reader.Offset()));
            if (lisp::EvalTopLevel(form, &value)) WriteOutput(lisp::ToString(value, true) + "\n");
            else ok = false;
            continue;
        }
        size_t end = pos;
        while (end < text.size() && !std::isspace(static_cast<unsigned char>(text[end]))) ++end;
        // The rest is typed ahead: the command's prompts read it.
        PushTypedInput(text.substr(end < text.size() ? end + 1 : end));
        WriteOutput("Command: " + text.substr(pos, end - pos) + "\n");
        ok = RunCommand(text.substr(pos, end - pos)) && ok;
    }
    return ok;
}

bool RunCommandTokens(const std::vector<std::string>& tokens) {
    std::string saved = TakeTypedInput();
    std::string typed;
    for (const std::string& t : tokens) typed += t + "\n";
    PushTypedInput(typed);
    bool ok = ProcessTypedInput();
    PushTypedInput(saved);
    return ok;
}

}  // namespace lumo::host

namespace {

std::string PointText(const double* p, bool is3d) {
    std::string s = lumo::lisp::FormatReal(p[0]) + "," + lumo::lisp::FormatReal(p[1]);
    return is3d ? s + "," + lumo::lisp::FormatReal(p[2]) : s;
}

bool TokenOf(const resbuf* rb, std::vector<std::string>& out) {
    switch (rb->restype) {
    case RTSTR: out.emplace_back(rb->resval.rstring ? rb->resval.rstring : ""); return true;
    case RTSHORT: out.push_back(std::to_string(rb->resval.rint)); return true;
    case RTLONG: out.push_back(std::to_string(rb->resval.rlong)); return true;
    case RTREAL: case RTANG: out.push_back(lumo::lisp::FormatReal(rb->resval.rreal)); return true;
    case RTPOINT: out.push_back(PointText(rb->resval.rpoint, false)); return true;
    case RT3DPOINT: out.push_back(PointText(rb->resval.rpoint, true)); return true;
    case RTNONE: return true;
    default: return false;
    }
}

}  // namespace

int acedCmd(const resbuf* list) {
    std::vector<std::string> tokens;
    for (const resbuf* rb = list; rb; rb = rb->rbnext)
        if (!TokenOf(rb, tokens)) return RTERROR;
    return lumo::host::RunCommandTokens(tokens) ? RTNORM : RTERROR;
}

int acedCommand(int type, ...) {
    va_list ap;
    va_start(ap, type);
    std::vector<std::string> tokens;
    bool ok = true;
    for (; type != 0 && type != RTNONE; type = va_arg(ap, int)) {
        resbuf rb{};
        rb.restype = static_cast<short>(type);
        switch (type) {
        case RTSTR: rb.resval.rstring = const_cast<char*>(va_arg(ap, const char*)); break;
        case RTSHORT: rb.resval.rint = static_cast<short>(va_arg(ap, int)); break;
        case RTLONG: rb.resval.rlong = va_arg(ap, int32_t); break;
        case RTREAL: case RTANG: rb.resval.rreal = va_arg(ap, double); break;
        case RTPOINT: case RT3DPOINT: {
            const double* p = va_arg(ap, const double*);
            for (int i = 0; i < 3; ++i) rb.resval.rpoint[i] = p[i];
            break;
        }
        default: ok = false; break;
        }
        if (!ok || !TokenOf(&rb, tokens)) {
            ok = false;
            break;
        }
    }
    va_end(ap);
    if (!ok) return RTERROR;
    return lumo::host::RunCommandTokens(tokens) ? RTNORM : RTERROR;
}
