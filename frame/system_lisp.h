// The LISP system family (lumo_system_*): what the operating system knows of
// the machine, its names, volumes, folders and screen.
#pragma once

int lumo_system_beep();
int lumo_system_ComputerName();
int lumo_system_UserName();
int lumo_system_VolumeName();
int lumo_system_getSerial();
int lumo_system_getideserial();
int lumo_system_getscreenResolution();
int lumo_system_WinFolder();
int lumo_system_TempFolder();
int lumo_system_WinSysFolder();
int lumo_system_getLogicalDrive();
