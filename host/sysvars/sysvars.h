// The host's system variables: a table of named values with their types,
// read-only flags and, for values that live elsewhere (the drawing),
// getter and setter callbacks.
#pragma once
#include <functional>
#include <string>

#include "platform/adsdef.h"

namespace lumo::host {

struct SysVarValue {
    short type = RTSHORT;  // RTSHORT, RTLONG, RTREAL, RTSTR, RTPOINT, RT3DPOINT
    int i = 0;
    double r = 0;
    std::string s;
    double p[3] = {0, 0, 0};
};

struct SysVarDef {
    SysVarValue initial;
    bool readOnly = false;
    // Computed variables answer through `get`; variables kept elsewhere take
    // new values through `set` (false rejects the value).
    std::function<SysVarValue()> get;
    std::function<bool(const SysVarValue&)> set;
};

// Adds or replaces a variable; names are case-insensitive.
void RegisterSysVar(const std::string& name, SysVarDef def);
bool GetSysVar(const std::string& name, SysVarValue& out);
// False when the variable is unknown, read-only or the value has the wrong
// type. `force` sets read-only variables too (the host's own updates).
bool SetSysVar(const std::string& name, const SysVarValue& value, bool force = false);

SysVarValue ShortVar(int v);
SysVarValue RealVar(double v);
SysVarValue StringVar(std::string v);
SysVarValue PointVar(double x, double y, double z);

}  // namespace lumo::host
