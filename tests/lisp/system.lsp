;;; The module's system, file and folder functions, on real files in a fresh
;;; folder of the temporary folder, through C: paths (C: is the filesystem
;;; root unless lumo is told otherwise) and plain host paths.
(load "check.lsp")

;;; what the machine tells
(check 'computer-name (type (lumo_system_ComputerName)) 'STR)
(check 'computer-name-args (lumo_system_ComputerName 1) nil)
(check 'user-name (type (lumo_system_UserName)) 'STR)
(check 'user-name-args (lumo_system_UserName "x") nil)
(check 'volume-name (type (lumo_system_VolumeName "C:\\")) 'STR)
(check 'volume-name-no-drive (lumo_system_VolumeName "Q:\\") nil)
(check 'volume-name-number (lumo_system_VolumeName 1) nil)
(check 'serial-shape (wcmatch (lumo_system_getSerial "C:\\") "*-*") T)
(check 'serial-number (lumo_system_getSerial 1) nil)
(check 'ide-serial-args (lumo_system_getideserial 1) nil)
(setq screen (lumo_system_getscreenResolution))
(check 'screen-two-numbers (length screen) 2)
(check 'screen-positive (and (> (car screen) 0) (> (cadr screen) 0)) T)
(check 'screen-args (lumo_system_getscreenResolution 1) nil)
(check 'win-folder (type (lumo_system_WinFolder)) 'STR)
(check 'sys-folder (type (lumo_system_WinSysFolder)) 'STR)
(setq temp (lumo_system_TempFolder))
(check 'temp-ends-with-backslash (substr temp (strlen temp)) "\\")
(check 'temp-exists (= 16 (logand 16 (lumo_system_getfileAttributes temp))) T)
(check 'drives-have-c (and (member "C:\\" (lumo_system_getLogicalDrive)) T) T)
(check 'drives-args (lumo_system_getLogicalDrive 1) nil)

;;; the speaker
(check 'beep-too-low (lumo_system_beep 36 10) nil)
(check 'beep (lumo_system_beep 37 10) T)
(check 'beep-missing-duration (lumo_system_beep 440) nil)
(check 'beep-real-frequency (lumo_system_beep 440.0 10) nil)
(check 'beep-text-duration (lumo_system_beep 440 "x") nil)
(check 'beep-negative (lumo_system_beep -440 10) nil)
(check 'beep-highest (lumo_system_beep 32767 1) T)

;;; the rest take no argument
(check 'ide-serial-unset (lumo_system_getideserial) nil)
(check 'win-folder-args (lumo_system_WinFolder 1) nil)
(check 'temp-folder-args (lumo_system_TempFolder "x") nil)
(check 'sys-folder-args (lumo_system_WinSysFolder nil 1) nil)

;;; a fresh folder: C:\tmp\lumosysNNN in Windows form, /tmp/lumosysNNN on the host
(setq host-base (vl-filename-mktemp "lumosys"))
(setq base (strcat "C:" (vl-string-translate "/" "\\" host-base)))
(check 'createfolder (lumo_system_createfolder base) T)
(check 'createfolder-again (lumo_system_createfolder base) nil)
(check 'folder-attributes (lumo_system_getfileAttributes base) 16)
(check 'folder-attributes-host-path (lumo_system_getfileAttributes host-base) 16)

;;; files: write one through the host's own open
(setq a (strcat base "\\A.txt"))
(setq f (open a "w"))
(write-line "line one" f)
(write-line "line two" f)
(close f)
(check 'file-attributes (lumo_system_getfileAttributes a) 32)
(check 'file-attributes-other-case (lumo_system_getfileAttributes (strcase a t)) 32)
(check 'set-readonly (lumo_system_setfileAttributes a 1) T)
(check 'readonly (lumo_system_getfileAttributes a) 33)
(check 'set-normal (lumo_system_setfileAttributes a 128) T)
(check 'attributes-missing (lumo_system_getfileAttributes (strcat base "\\none")) nil)
;; A path of n characters naming A.txt, padded with empty folder names.
(defun pad-to (n / p)
  (setq p (strcat base "\\"))
  (while (< (+ (strlen p) 5) n) (setq p (strcat p "\\")))
  (strcat p "A.txt"))
(check 'attributes-260 (lumo_system_getfileAttributes (pad-to 260)) 32)
(check 'attributes-261 (lumo_system_getfileAttributes (pad-to 261)) nil)
(check 'set-attributes-261 (lumo_system_setfileAttributes (pad-to 261) 1) nil)

;;; copy and move both copy; the same name in two cases is refused
(setq b (strcat base "\\b.txt"))
(check 'filecopy (lumo_system_filecopy a b) T)
(setq f (open b "r"))
(check 'filecopy-content (list (read-line f) (read-line f) (read-line f)) '("line one" "line two" nil))
(close f)
(check 'filecopy-same-name (lumo_system_filecopy a (strcase a)) nil)
(check 'filecopy-missing (lumo_system_filecopy (strcat base "\\none") b) nil)
(check 'filecopy-one-argument (lumo_system_filecopy a) nil)
(setq c (strcat host-base "/c.txt"))
(check 'filemove (lumo_system_filemove a c) T)
(check 'filemove-keeps-source (lumo_system_getfileAttributes a) 32)
(check 'filemove-made-target (lumo_system_getfileAttributes c) 32)

;;; rename, delete
(setq d (strcat base "\\d.txt"))
(check 'rename-to-taken (lumo_system_filerename b c) nil)
(check 'rename (lumo_system_filerename b d) T)
(check 'rename-source-gone (lumo_system_getfileAttributes b) nil)
(check 'rename-one-argument (lumo_system_filerename d) nil)
(check 'filedel (lumo_system_filedel d) T)
(check 'filedel-again (lumo_system_filedel d) nil)

;;; current folder, reported in its Windows form "X:\...\lumosysNNN"
(defun windows-form-of-base (folder / leaf)
  (setq leaf (strcat "\\" (vl-filename-base host-base)))
  (and (= (lumo_string_mid folder 1 1) ":")
       (= (strcase (lumo_string_right folder (strlen leaf))) (strcase leaf))))
(setq here (lumo_getcdir))
(check 'getcd-same (lumo_getcd) here)
(check 'getcdir-args (lumo_getcdir 1) nil)
(check 'chdir (lumo_chdir base) T)
(check 'chdir-where (windows-form-of-base (lumo_getcdir)) T)
(check 'changedir-back (lumo_changedir here) T)
(check 'set-current-folder (lumo_system_setCurrentFolder host-base) T)
(check 'set-current-folder-where (windows-form-of-base (lumo_getcd)) T)
(lumo_chdir here)
(check 'chdir-missing (lumo_chdir (strcat base "\\none")) nil)

;;; folders
(setq sub (strcat base "\\sub"))
(check 'makedir (lumo_makedir sub) T)
(check 'mkdir-again (lumo_mkdir sub) nil)
(check 'rmdir (lumo_rmdir sub) T)
(check 'removedir-again (lumo_removedir sub) nil)
(check 'mkdir (lumo_mkdir (strcat host-base "/tree")) T)
(lumo_makedir (strcat base "\\tree\\deeper"))
(lumo_system_filecopy c (strcat base "\\tree\\x.txt"))
(lumo_system_filecopy c (strcat base "\\tree\\deeper\\y.txt"))

;;; deltree empties a folder below a drive's root, and refuses the rest
(check 'deltree-root (lumo_system_deltree "C:\\") nil)
(check 'deltree-no-drive (lumo_system_deltree (strcat host-base "/tree")) nil)
(check 'deltree-top-level (lumo_system_deltree "C:\\tmp") nil)
(check 'deltree (lumo_system_deltree (strcat base "\\TREE")) T)
(check 'deltree-emptied (lumo_system_getfileAttributes (strcat base "\\tree\\x.txt")) nil)
(check 'deltree-subfolder-gone (lumo_system_getfileAttributes (strcat base "\\tree\\deeper")) nil)
(check 'deltree-kept-folder (lumo_system_getfileAttributes (strcat base "\\tree")) 16)

;;; a drive of its own: run with --drive T=<empty folder> to exercise it
(if (member "T:\\" (lumo_system_getLogicalDrive))
  (progn
    (check 't-createfolder (lumo_system_createfolder "T:\\Lumo") T)
    (check 't-copy (lumo_system_filecopy c "t:\\LUMO\\c.txt") T)
    (check 't-attributes (lumo_system_getfileAttributes "T:\\lumo\\C.TXT") 32)
    (check 't-chdir (lumo_chdir "T:\\lumo") T)
    (check 't-getcdir (lumo_getcdir) "T:\\Lumo")
    (lumo_chdir here)
    (check 't-deltree-root (lumo_system_deltree "T:\\") nil)
    (check 't-deltree (lumo_system_deltree "T:\\lumo\\") T)
    (check 't-emptied (lumo_system_getfileAttributes "T:\\lumo\\c.txt") nil)
    (check 't-rmdir (lumo_rmdir "T:\\lumo") T)))

;;; clean up
(check 'deltree-base (lumo_system_deltree base) T)
(check 'rmdir-base (lumo_rmdir base) T)

(check-done)
