// The LISP function table. Rows are grouped by family, each group under a
// one-line banner; the order of the plain rows fixes their function codes.
#include "frame/function_table.h"

#include "database/entity_lisp.h"
#include "database/pickset_lisp.h"
#include "frame/directory_lisp.h"
#include "frame/frame_lisp.h"
#include "frame/numlist_lisp.h"
#include "frame/stacks_lisp.h"
#include "frame/strings_lisp.h"
#include "frame/system_lisp.h"

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

    // ---- strings
    {"lumo_string_right", lumo_string_right},
    {"lumo_string_left", lumo_string_left},
    {"lumo_string_mid", lumo_string_mid},
    {"lumo_string_SpanIncluding", lumo_string_SpanIncluding},
    {"lumo_string_SpanExcluding", lumo_string_SpanExcluding},
    {"lumo_string_Reverse", lumo_string_Reverse},
    {"lumo_string_replace", lumo_string_replace},
    {"lumo_string_Subst", lumo_string_Subst},
    {"lumo_string_Find", lumo_string_Find},
    {"lumo_string_Insert", lumo_string_Insert},
    {"lumo_string_Remove", lumo_string_Remove},
    {"lumo_string_TrimRight", lumo_string_TrimRight},
    {"lumo_string_TrimLeft", lumo_string_TrimLeft},
    {"lumo_string_FindOneOf", lumo_string_FindOneOf},
    {"lumo_string_format", lumo_string_format},
    {"lumo_string_tok", lumo_string_tok},
    {"lumo_string_split", lumo_string_split},
    {"lumo_string_join", lumo_string_join},
    {"lumo_gettime", lumo_gettime},
    {"lumo_getrandstr", lumo_getrandstr},

    // ---- number lists
    {"lumo_realsort1", lumo_realsort1},
    {"lumo_realsort2", lumo_realsort2},
    {"lumo_rlistsort1", lumo_rlistsort1},
    {"lumo_rlistsort2", lumo_rlistsort2},
    {"lumo_rlistdel1", lumo_rlistdel1},
    {"lumo_rlistdel2", lumo_rlistdel2},

    // ---- system
    {"lumo_system_beep", lumo_system_beep},
    {"lumo_system_ComputerName", lumo_system_ComputerName},
    {"lumo_system_UserName", lumo_system_UserName},
    {"lumo_system_VolumeName", lumo_system_VolumeName},
    {"lumo_system_getSerial", lumo_system_getSerial},
    {"lumo_system_getideserial", lumo_system_getideserial},
    {"lumo_system_getscreenResolution", lumo_system_getscreenResolution},
    {"lumo_system_WinFolder", lumo_system_WinFolder},
    {"lumo_system_TempFolder", lumo_system_TempFolder},
    {"lumo_system_WinSysFolder", lumo_system_WinSysFolder},
    {"lumo_system_getLogicalDrive", lumo_system_getLogicalDrive},

    // ---- files and folders
    {"lumo_system_getfileAttributes", lumo_system_getfileAttributes},
    {"lumo_system_setfileAttributes", lumo_system_setfileAttributes},
    {"lumo_system_createfolder", lumo_system_createfolder},
    {"lumo_system_setCurrentFolder", lumo_system_setCurrentFolder},
    {"lumo_system_filerename", lumo_system_filerename},
    {"lumo_system_filecopy", lumo_system_filecopy},
    {"lumo_system_filemove", lumo_system_filecopy},
    {"lumo_system_filedel", lumo_system_filedel},
    {"lumo_system_deltree", lumo_system_deltree},
    {"lumo_getcdir", lumo_getcdir},
    {"lumo_getcd", lumo_getcdir},
    {"lumo_makedir", lumo_makedir},
    {"lumo_mkdir", lumo_makedir},
    {"lumo_chdir", lumo_chdir},
    {"lumo_changedir", lumo_chdir},
    {"lumo_rmdir", lumo_rmdir},
    {"lumo_removedir", lumo_rmdir},

    // ---- selection sets
    {"lumo_PickSet_Union", lumo_PickSet_Union},
    {"lumo_PickSet_Subtract", lumo_PickSet_Subtract},
    {"lumo_PickSet_Intersect", lumo_PickSet_Intersect},
    {"lumo_getss", lumo_getss},
    {"c:lumo_getss", c_lumo_getss},
    {"lumo_savssnum", lumo_savssnum},
    {"c:lumo_savsslink", c_lumo_savsslink},
    {"lumo_setmark", lumo_setmark},
    {"c:lumo_setmark", c_lumo_setmark},
    {"C:P1", C_P1},
    {"C:P2", C_P2},
    {"C:P3", C_P3},
    {"C:P4", C_P4},
    {"C:P5", C_P5},
    {"C:P6", C_P6},
    {"C:P7", C_P7},
    {"C:P8", C_P8},
    {"C:P9", C_P9},
    {"c:pp", c_pp},

    // ---- the current entity
    {"lumo_setenttodb", lumo_setenttodb},
    {"lumo_getentdxf", lumo_getentdxf},
    {"lumo_setsstodb", lumo_setsstodb},
    {"lumo_getentdata", lumo_getentdata},
    {"lumo_getpolyvtx", lumo_getpolyvtx},
    {"lumo_nextent", lumo_getpolyvtx},
    {"lumo_modent", lumo_modent},
    {"lumo_entdbsinit", lumo_entdbsinit},

    // ---- value stacks
    {"lumo_objectstack_push", lumo_objectstack_push},
    {"lumo_objectstack_pop", lumo_objectstack_pop},
    {"lumo_objectstack_top", lumo_objectstack_top},
    {"lumo_objectstack_depth", lumo_objectstack_depth},
    {"lumo_objectstack_popall", lumo_objectstack_popall},
    {"lumo_container_push", lumo_container_push},
    {"lumo_container_pop", lumo_container_pop},
    {"lumo_container_iter", lumo_container_iter},
    {"lumo_container_Depth", lumo_container_Depth},
    {"lumo_container_PopAll", lumo_container_PopAll},
    {"lumo_object_iscontainer", lumo_object_iscontainer},
    {"lumo_sysvar_push", lumo_sysvar_push},
    {"lumo_sysvar_pop", lumo_sysvar_pop},
};

const int gLispFunctionCount = sizeof gLispFunctions / sizeof gLispFunctions[0];
const int gRegFuncRowCount = 0;
