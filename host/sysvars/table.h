// The variable table itself, shared by the lookup and the defaults.
#pragma once
#include <map>
#include <string>

#include "host/sysvars/sysvars.h"

namespace lumo::host {

struct SysVarEntry {
    SysVarDef def;
    SysVarValue value;
};
// Keys are upper case. Built on first use, so other files may register
// variables from their static initialisers.
std::map<std::string, SysVarEntry>& SysVarTable();

}  // namespace lumo::host
