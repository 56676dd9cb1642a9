;;; The frame's own functions, reached through the function table.
(load "check.lsp")

;;; output system
(check 'ucson (lumo_ucson) 1)
(check 'ucsoff-prints-nothing (vl-princ-to-string (lumo_ucsoff)) "")

;;; Esc mask
(check 'maskesc-first (lumo_maskesc) T)
(check 'maskesc-again (lumo_maskesc) T)
(check 'resesc (lumo_resesc) T)
(check 'resesc-without-mask (lumo_resesc) T)

;;; the empty function and the debugging aid
(check 'sharp-ls (#Ls 1 2 3) nil)
(check 'temp-real (vl-princ-to-string (TEMP 1.0)) "nil")

;;; names fold case, as the host folds them
(check 'folded (LUMO_UCSON) 1)
(lumo_ucsoff)

;;; hot keys of the main filter: Tab types a transparent ZOOM, Ctrl-U the
;;; link command (no command is active while a script runs)
(setq WM_CHAR 258 WM_KEYDOWN 256)
(check 'tab-not-swallowed (lumo-host:message WM_CHAR 9) nil)
(check 'tab-types-zoom (lumo-host:typed-input) "'ZOOM\nD\n")
(lumo-host:message WM_CHAR 21)
(check 'ctrl-u-types-link (lumo-host:typed-input) "lumo_savsslink\n")
(lumo-host:message WM_CHAR 65)
(check 'other-chars-type-nothing (lumo-host:typed-input) nil)

;;; the Esc mask swallows Esc while it is on
(lumo_maskesc)
(check 'esc-swallowed (lumo-host:message WM_KEYDOWN 27) T)
(lumo_resesc)
(check 'esc-passes (lumo-host:message WM_KEYDOWN 27) nil)
(lumo-host:user-break)

(check-done)
