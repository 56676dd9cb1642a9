// The LISP folder and file functions: lumo_system_* on files and folders,
// and the older lumo_getcdir, lumo_makedir, lumo_chdir, lumo_rmdir families
// (each of those serves two names).
#pragma once

int lumo_system_getfileAttributes();
int lumo_system_setfileAttributes();
int lumo_system_createfolder();
int lumo_system_setCurrentFolder();
int lumo_system_filerename();
int lumo_system_filecopy();      // also lumo_system_filemove, which copies too
int lumo_system_filedel();
int lumo_system_deltree();
int lumo_getcdir();              // also lumo_getcd
int lumo_makedir();              // also lumo_mkdir
int lumo_chdir();                // also lumo_changedir
int lumo_rmdir();                // also lumo_removedir

// Deletes everything inside `folder` (Windows or host path), sub-folders and
// their contents included; the folder itself stays. 1 when all went, else 0.
int EmptyFolder(const char* folder);
