#include "host/sysvars/table.h"

#include <cctype>
#include <cstdlib>
#include <cstring>
#include <map>

#include "platform/acedads.h"
#include "platform/crt.h"

namespace lumo::host {


namespace {

std::string Key(const std::string& name) {
    std::string k = name;
    for (char& c : k) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return k;
}

bool Compatible(short want, short given) {
    if (want == given) return true;
    if ((want == RTSHORT || want == RTLONG) && (given == RTSHORT || given == RTLONG)) return true;
    if (want == RTREAL && (given == RTSHORT || given == RTLONG)) return true;
    if ((want == RTPOINT || want == RT3DPOINT) && (given == RTPOINT || given == RT3DPOINT)) return true;
    return false;
}

SysVarValue Coerce(short want, const SysVarValue& v) {
    SysVarValue out = v;
    out.type = want;
    if (want == RTREAL && v.type != RTREAL) out.r = v.i;
    if (want == RTPOINT) out.p[2] = 0;
    return out;
}

}  // namespace

SysVarValue ShortVar(int v) { SysVarValue x; x.type = RTSHORT; x.i = v; return x; }
SysVarValue RealVar(double v) { SysVarValue x; x.type = RTREAL; x.r = v; return x; }
SysVarValue StringVar(std::string v) { SysVarValue x; x.type = RTSTR; x.s = std::move(v); return x; }
SysVarValue PointVar(double x0, double y, double z) {
    SysVarValue x;
    x.type = RT3DPOINT;
    x.p[0] = x0; x.p[1] = y; x.p[2] = z;
    return x;
}

void RegisterSysVar(const std::string& name, SysVarDef def) {
    SysVarEntry e{std::move(def), {}};
    e.value = e.def.initial;
    SysVarTable()[Key(name)] = std::move(e);
}

bool GetSysVar(const std::string& name, SysVarValue& out) {
    auto it = SysVarTable().find(Key(name));
    if (it == SysVarTable().end()) return false;
    out = it->second.def.get ? it->second.def.get() : it->second.value;
    return true;
}

bool SetSysVar(const std::string& name, const SysVarValue& value, bool force) {
    auto it = SysVarTable().find(Key(name));
    if (it == SysVarTable().end()) return false;
    SysVarEntry& e = it->second;
    if (e.def.readOnly && !force) return false;
    if (!Compatible(e.def.initial.type, value.type)) return false;
    SysVarValue v = Coerce(e.def.initial.type, value);
    if (e.def.set) return e.def.set(v);
    e.value = std::move(v);
    return true;
}

}  // namespace lumo::host

using namespace lumo::host;

int acedGetVar(const char* name, resbuf* out) {
    SysVarValue v;
    if (!name || !out || !GetSysVar(name, v)) return RTERROR;
    out->restype = v.type;
    switch (v.type) {
    case RTSHORT: out->resval.rint = static_cast<short>(v.i); break;
    case RTLONG: out->resval.rlong = v.i; break;
    case RTREAL: out->resval.rreal = v.r; break;
    case RTSTR: out->resval.rstring = _strdup(v.s.c_str()); break;
    default: std::memcpy(out->resval.rpoint, v.p, sizeof v.p); break;
    }
    return RTNORM;
}

int acedSetVar(const char* name, const resbuf* value) {
    if (!name || !value) return RTERROR;
    SysVarValue v;
    v.type = value->restype;
    switch (value->restype) {
    case RTSHORT: v.i = value->resval.rint; break;
    case RTLONG: v.i = value->resval.rlong; break;
    case RTREAL: v.r = value->resval.rreal; break;
    case RTSTR: v.s = value->resval.rstring ? value->resval.rstring : ""; break;
    case RTPOINT: case RT3DPOINT: std::memcpy(v.p, value->resval.rpoint, sizeof v.p); break;
    default: return RTERROR;
    }
    return SetSysVar(name, v) ? RTNORM : RTERROR;
}
