// The frame's own LISP functions: output system, Esc mask, hotkeys, debug.
#pragma once

int lumo_ucson();
int lumo_ucsoff();
int lumo_maskesc();
int lumo_resesc();
int c_lumo_hotkey();
int sharp_Ls();   // "#Ls"
int TEMP();
