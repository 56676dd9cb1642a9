// The LISP function table. Rows are grouped by family, each group under a
// one-line banner; the order of the plain rows fixes their function codes.
#include "frame/function_table.h"

#include "frame/frame_lisp.h"

const LispFunctionEntry gLispFunctions[] = {
    // ---- rows registered through acedRegFunc come first (none yet)

    // ---- frame
    {"lumo_ucson", lumo_ucson},
    {"lumo_ucsoff", lumo_ucsoff},
    {"lumo_maskesc", lumo_maskesc},
    {"lumo_resesc", lumo_resesc},
    {"c:lumo_hotkey", c_lumo_hotkey},
    {"#Ls", sharp_Ls},
    {"TEMP", TEMP},
};

const int gLispFunctionCount = sizeof gLispFunctions / sizeof gLispFunctions[0];
const int gRegFuncRowCount = 0;
