;;; Files and folders on drive letters mapped to folders of the build tree:
;;; lumo runs this with --drive C=drive_c --drive T=drive_t from the folder
;;; holding both, which start empty. Each file is reached both through its
;;; drive path and through its plain path.
(load "check.lsp")

(check 'drives (lumo_system_getLogicalDrive) '("C:\\" "T:\\"))
(check 'volume-of-t (type (lumo_system_VolumeName "T:\\")) 'STR)
(check 'volume-of-unmapped (lumo_system_VolumeName "Q:\\") nil)
(check 'serial-of-t (wcmatch (lumo_system_getSerial "T:\\") "????-*") T)
(setq here (lumo_getcdir))
(check 'here-is-plain (wcmatch here "/*") T)

;;; folders made through the drive appear in the mapped folder
(check 'createfolder (lumo_system_createfolder "C:\\Work") T)
(check 'createfolder-plain-view (lumo_system_getfileAttributes "drive_c/Work") 16)
(check 'makedir-slashes (lumo_makedir "c:/work/Sub") T)
(check 'makedir-plain-view (lumo_system_getfileAttributes "drive_c/Work/Sub") 16)
(check 'rmdir-other-case (lumo_rmdir "C:\\WORK\\SUB") T)
(check 'rmdir-gone (lumo_system_getfileAttributes "drive_c/Work/Sub") nil)

;;; a file written through its plain path is found through the drive, in any case
(setq f (open "drive_c/Work/Plain.txt" "w"))
(write-line "first" f)
(write-line "second" f)
(close f)
(check 'attributes-drive (lumo_system_getfileAttributes "C:\\Work\\Plain.txt") 32)
(check 'attributes-other-case (lumo_system_getfileAttributes "c:\\WORK\\plain.TXT") 32)
(check 'attributes-slashes (lumo_system_getfileAttributes "C:/Work/Plain.txt") 32)
(check 'attributes-doubled-separator (lumo_system_getfileAttributes "C:\\Work\\\\Plain.txt") 32)
(check 'attributes-unmapped (lumo_system_getfileAttributes "Q:\\Work\\Plain.txt") nil)
(check 'readonly (lumo_system_setfileAttributes "C:\\Work\\Plain.txt" 1) T)
(check 'readonly-plain-view (lumo_system_getfileAttributes "drive_c/Work/Plain.txt") 33)
(check 'writable (lumo_system_setfileAttributes "drive_c/Work/Plain.txt" 128) T)
(check 'writable-drive-view (lumo_system_getfileAttributes "C:\\Work\\Plain.txt") 32)

;;; copies go from drive to drive; a copy's content is the source's
(check 'copy-c-to-t (lumo_system_filecopy "C:\\Work\\Plain.txt" "T:\\Copy.txt") T)
(setq f (open "drive_t/Copy.txt" "r"))
(check 'copy-content (list (read-line f) (read-line f) (read-line f)) '("first" "second" nil))
(close f)
(check 'copy-overwrites (lumo_system_filecopy "drive_c/Work/Plain.txt" "t:\\copy.txt") T)
(check 'copy-onto-itself (lumo_system_filecopy "T:\\Copy.txt" "t:\\COPY.TXT") nil)
(check 'move-keeps-source (lumo_system_filemove "T:\\Copy.txt" "C:\\Work\\Moved.txt") T)
(check 'move-source-there (lumo_system_getfileAttributes "drive_t/Copy.txt") 32)
(check 'move-target-there (lumo_system_getfileAttributes "drive_c/Work/Moved.txt") 32)
(check 'rename-across-drives (lumo_system_filerename "C:\\Work\\Moved.txt" "T:\\Renamed.txt") T)
(check 'rename-source-gone (lumo_system_getfileAttributes "drive_c/Work/Moved.txt") nil)
(check 'rename-target-there (lumo_system_getfileAttributes "drive_t/Renamed.txt") 32)
(check 'rename-onto-taken (lumo_system_filerename "T:\\Renamed.txt" "T:\\Copy.txt") nil)
(check 'filedel (lumo_system_filedel "T:\\renamed.txt") T)
(check 'filedel-gone (lumo_system_getfileAttributes "drive_t/Renamed.txt") nil)

;;; the current folder is told in the form of its drive
(check 'chdir (lumo_chdir "c:\\work") T)
(check 'getcdir-on-drive (lumo_getcdir) "C:\\Work")
(check 'relative-name (lumo_system_getfileAttributes "plain.txt") 32)
(check 'drive-relative-name (lumo_system_getfileAttributes "C:plain.txt") 32)
(check 'rooted-name (lumo_system_getfileAttributes "\\Work\\Plain.txt") 32)
(check 'set-current-folder (lumo_system_setCurrentFolder "T:\\") T)
(check 'getcd-at-root (lumo_getcd) "T:\\")
(check 'changedir-back (lumo_changedir here) T)
(check 'back-here (lumo_getcdir) here)

;;; a new folder's path has 248 characters at most
(defun name-of (n / s) (setq s "") (repeat n (setq s (strcat s "n"))) s)
(setq p248 (strcat "C:\\Work\\" (name-of 240)) p249 (strcat "C:\\Work\\" (name-of 241)))
(check 'createfolder-248 (lumo_system_createfolder p248) T)
(check 'createfolder-249 (lumo_system_createfolder p249) nil)
(check 'createfolder-249-not-made (lumo_system_getfileAttributes p249) nil)
(check 'rmdir-248 (lumo_rmdir p248) T)

;;; deltree empties a folder two levels below the root, and refuses the rest
(lumo_makedir "C:\\Work\\Tree")
(lumo_makedir "C:\\Work\\Tree\\Deeper")
(lumo_system_filecopy "C:\\Work\\Plain.txt" "C:\\Work\\Tree\\a.txt")
(lumo_system_filecopy "C:\\Work\\Plain.txt" "C:\\Work\\Tree\\Deeper\\b.txt")
(check 'deltree-root (lumo_system_deltree "C:\\") nil)
(check 'deltree-root-slash (lumo_system_deltree "T:/") nil)
(check 'deltree-drive-only (lumo_system_deltree "C:") nil)
(check 'deltree-first-level (lumo_system_deltree "C:\\Work") nil)
(check 'deltree-plain-path (lumo_system_deltree "drive_c/Work/Tree") nil)
(check 'deltree-missing (lumo_system_deltree "C:\\Work\\None") nil)
(check 'deltree-untouched (lumo_system_getfileAttributes "drive_c/Work/Tree/Deeper/b.txt") 32)
(check 'deltree (lumo_system_deltree "c:\\work\\tree") T)
(check 'deltree-file-gone (lumo_system_getfileAttributes "drive_c/Work/Tree/a.txt") nil)
(check 'deltree-subfolder-gone (lumo_system_getfileAttributes "drive_c/Work/Tree/Deeper") nil)
(check 'deltree-folder-kept (lumo_system_getfileAttributes "drive_c/Work/Tree") 16)
(check 'deltree-empty-folder (lumo_system_deltree "C:\\Work\\Tree\\") T)
(check 'deltree-keeps-sibling (lumo_system_getfileAttributes "C:\\Work\\Plain.txt") 32)

;;; wrong arguments give nil and change nothing
(check 'createfolder-number (lumo_system_createfolder 1) nil)
(check 'filedel-number (lumo_system_filedel 1) nil)
(check 'filecopy-number (lumo_system_filecopy "C:\\Work\\Plain.txt" 1) nil)
(check 'filerename-number (lumo_system_filerename 1 "T:\\x") nil)
(check 'setattributes-real (lumo_system_setfileAttributes "C:\\Work\\Plain.txt" 1.0) nil)
(check 'setattributes-missing (lumo_system_setfileAttributes "C:\\Work\\Plain.txt") nil)
(check 'getattributes-list (lumo_system_getfileAttributes '("C:\\Work")) nil)
(check 'chdir-number (lumo_chdir 1) nil)
(check 'mkdir-none (lumo_mkdir) nil)
(check 'rmdir-real (lumo_rmdir 1.5) nil)
(check 'deltree-number (lumo_system_deltree 1) nil)
(check 'set-current-number (lumo_system_setCurrentFolder 1) nil)
(check 'still-here (lumo_getcdir) here)

;;; clean up: the folders end as they began, empty
(check 'clean-file (lumo_system_filedel "C:\\Work\\Plain.txt") T)
(check 'clean-t (lumo_system_filedel "T:\\Copy.txt") T)
(check 'clean-tree (lumo_rmdir "C:\\Work\\Tree") T)
(check 'clean-work (lumo_rmdir "C:\\Work") T)

(check-done)
