;;; The host's file functions on real files in the temporary folder.
(load "check.lsp")

(setq tmp-a (vl-filename-mktemp "lumoa.txt")
      tmp-b (vl-filename-mktemp "lumob.txt")
      tmp-c (vl-filename-mktemp "lumoc.txt"))

;;; writing and reading back
(setq f (open tmp-a "w"))
(check 'open-type (type f) 'FILE)
(check 'write-line (write-line "first line" f) "first line")
(check 'write-char (write-char 65 f) 65)
(write-line "" f)
(write-line "third" f)
(check 'close (close f) nil)
(setq f (open tmp-a "a"))
(write-line "appended" f)
(close f)
(setq f (open tmp-a "r"))
(check 'read-line (read-line f) "first line")
(check 'read-char (read-char f) 65)
(check 'read-char-newline (read-char f) 10)
(check 'read-line-2 (read-line f) "third")
(check 'read-line-3 (read-line f) "appended")
(check 'read-line-eof (read-line f) nil)
(check 'read-char-eof (read-char f) nil)
(close f)
(check 'open-missing (open tmp-b "r") nil)
(check 'open-bad-mode (open tmp-a "q") nil)
(check-error 'read-line-not-file '(read-line "x") "bad argument type: streamp \"x\"")

;;; the same file through a Windows path (C: is the filesystem root)
(setq win-a (strcat "C:" (vl-string-translate "/" "\\" tmp-a)))
(setq f (open win-a "r"))
(check 'windows-path-open (read-line f) "first line")
(close f)
(check 'windows-path-findfile (findfile win-a) tmp-a)

;;; copy, rename, delete
(check 'copy (vl-file-copy tmp-a tmp-b) 28)
(check 'copy-no-overwrite (vl-file-copy tmp-a tmp-b) nil)
(check 'rename-onto-existing (vl-file-rename tmp-b tmp-a) nil)
(check 'rename (vl-file-rename tmp-b tmp-c) T)
(check 'renamed-gone (findfile tmp-b) nil)
(check 'renamed-there (findfile tmp-c) tmp-c)
(check 'delete (vl-file-delete tmp-c) T)
(check 'delete-again (vl-file-delete tmp-c) nil)
(check 'delete-a (vl-file-delete tmp-a) T)

;;; findfile and load along the support path
(check 'findfile-support (vl-filename-base (findfile "check.lsp")) "check")
(check 'findfile-missing (findfile "no-such-file.lsp") nil)
(check 'load-failure-value (load "no-such-file" 'missing) 'MISSING)
(check-error 'load-failure '(load "no-such-file") "LOAD failed: \"no-such-file\"")

;;; directories
(setq lib-dir (vl-filename-directory (findfile "check.lsp")))
(check 'directory-p (vl-file-directory-p lib-dir) T)
(check 'directory-p-file (vl-file-directory-p (findfile "check.lsp")) nil)
(check 'directory-files (member "check.lsp" (vl-directory-files lib-dir "*.lsp" 1)) '("check.lsp"))
(check 'directory-files-case (car (vl-directory-files lib-dir "CHECK.*" 1)) "check.lsp")
(check 'directory-files-dirs (vl-directory-files lib-dir nil -1) '("." ".."))
(check 'directory-files-missing (vl-directory-files (strcat lib-dir "/nope")) nil)

;;; file names
(check 'filename-base (vl-filename-base "c:\\acadwin\\acad.exe") "acad")
(check 'filename-base-dir (vl-filename-base "c:\\acadwin") "acadwin")
(check 'filename-extension (vl-filename-extension "c:\\acadwin\\acad.exe") ".exe")
(check 'filename-extension-none (vl-filename-extension "c:\\acadwin\\acad") nil)
(check 'filename-directory (vl-filename-directory "c:\\acadwin\\acad.exe") "c:\\acadwin")
(check 'filename-directory-none (vl-filename-directory "acad.exe") "")
(check 'filename-unix (vl-filename-directory "/usr/share/a.lsp") "/usr/share")
(check 'mktemp-extension (vl-filename-extension (vl-filename-mktemp nil nil ".dat")) ".dat")
(check 'mktemp-new (= (vl-filename-mktemp "x.txt") (vl-filename-mktemp "x.txt")) nil)

;;; the environment
(check 'setenv (setenv "LUMO_LSP_TEST" "on") "on")
(check 'getenv (getenv "LUMO_LSP_TEST") "on")
(check 'getenv-unset (getenv "LUMO_LSP_TEST_UNSET") nil)

(check-done)
