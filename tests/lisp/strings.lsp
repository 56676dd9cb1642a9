;;; The module's string and number-list functions.
(load "check.lsp")

;;; cutting
(check 'right (lumo_string_right "abcdef" 2) "ef")
(check 'right-past-length (lumo_string_right "abc" 9) "abc")
(check 'left (lumo_string_left "abcdef" 2) "ab")
(check 'left-negative (lumo_string_left "abcdef" -1) "")
(check 'mid-rest (lumo_string_mid "abcdef" 2) "cdef")
(check 'mid-count (lumo_string_mid "abcdef" 2 3) "cde")
(check 'mid-negative-count (lumo_string_mid "abcdef" 2 -1) "cdef")
(check 'mid-zero-count (lumo_string_mid "abcdef" 2 0) "")
(check 'mid-past-end (lumo_string_mid "abc" 5) "")
(check 'span-including (lumo_string_SpanIncluding "2024ad" "0123456789") "2024")
(check 'span-excluding (lumo_string_SpanExcluding "key=value" "=") "key")
(check 'reverse (lumo_string_Reverse "abc") "cba")
(check 'reverse-extra (lumo_string_Reverse "abc" 1) nil)

;;; searching and replacing
(check 'replace-all (lumo_string_replace "abcb" "b" "x") "axcx")
(check 'replace-none (lumo_string_replace "abc" "z" "x") nil)
(check 'subst-first (lumo_string_Subst "x" "b" "abcb") "axcb")
(check 'subst-none (lumo_string_Subst "x" "z" "abcb") nil)
(check 'find (lumo_string_Find "abcabc" "bc") 1)
(check 'find-from (lumo_string_Find "abcabc" "bc" 2) 4)
(check 'find-real-start (lumo_string_Find "abcabc" "bc" 2.0) 1)
(check 'find-none (lumo_string_Find "abc" "x") nil)
(check 'find-one-of (lumo_string_FindOneOf "abc" "xc") 2)
(check 'find-one-of-none (lumo_string_FindOneOf "abc" "xy") nil)

;;; editing
(check 'insert (lumo_string_Insert "abc" 1 "XY") "aXYbc")
(check 'remove-range (lumo_string_Remove "abcdef" 1 2) "adef")
(check 'remove-part (lumo_string_Remove "abcdef" "cd") "abef")
(check 'remove-missing-part (lumo_string_Remove "abcdef" "zz") "cdef")
(check 'trim-right (lumo_string_TrimRight "ab  ") "ab")
(check 'trim-right-set (lumo_string_TrimRight "ab.;." ".;") "ab")
(check 'trim-right-bad-set (lumo_string_TrimRight "ab" 1) nil)
(check 'trim-left (lumo_string_TrimLeft "  ab") "ab")
(check 'trim-left-set (lumo_string_TrimLeft "00012" "0") "12")

;;; format
(check 'format-decimals (lumo_string_format "a" 1.5 2 3) "a1.503")
(check 'format-truncates (lumo_string_format 1.9) "1")
(check 'format-decimals-range (lumo_string_format 1.5 9) "19")
(check 'format-long (lumo_string_format "n=" 70000) "n=70000")
(check 'format-empty (lumo_string_format) nil)

;;; tokens, split, join
(check 'split-keeps-empty (lumo_string_split "a,,b" ",") '("a" "" "b"))
(check 'split-none (lumo_string_split "abc" ",") '("abc"))
(check 'split-long-separator (lumo_string_split "a<>b<>" "<>") '("a" "b" ""))
(check 'tok-drops-empty (lumo_string_tok "a,,b" ",") '("a" "b"))
(check 'tok-none (lumo_string_tok ",,," ",") nil)
(check 'join-list (lumo_string_join '(1 2.7 "x") "-") "1-2-x")
(check 'join-point (lumo_string_join '(1.5 2.5 3.9) ",") "1,2,3")
(check 'join-2d-point (lumo_string_join '(7.9 -8.9) " ") "7 -8")
(check 'join-empty (lumo_string_join nil "-") nil)
(check 'join-nested (lumo_string_join '(1 (2)) "-") nil)
(check 'join-no-separator (lumo_string_join '(1 2)) nil)

;;; wrong arguments give nil without a message
(check 'right-no-args (lumo_string_right) nil)
(check 'right-real-count (lumo_string_right "abc" 1.0) nil)
(check 'left-number (lumo_string_left 12 1) nil)
(check 'insert-missing-part (lumo_string_Insert "abc" 1) nil)
(check 'remove-real (lumo_string_Remove "abc" 1.0 1) nil)

;;; time and random words
(setq now (lumo_gettime))
(check 'gettime-type (type now) 'STR)
(check 'gettime-year (substr now 1 4) (substr (rtos (getvar "CDATE") 2 0) 1 4))
(check 'gettime-digits (vl-string-trim "0123456789" now) "")
(check 'gettime-args (lumo_gettime 1) nil)
(setq word (lumo_getrandstr))
(check 'randstr-length (<= 1 (strlen word) 3) T)
(check 'randstr-capitals (vl-string-trim "ABCDEFGHIJKLMNOPQRSTUVWXYZ" word) "")
(check 'randstr-args (lumo_getrandstr "x") nil)

;;; number sorts
(check 'realsort1 (lumo_realsort1 3 1 1.000001 2) '(1.0 2.0 3.0))
(check 'realsort2 (lumo_realsort2 3 1 1.000001 2) '(1.0 1.000001 2.0 3.0))
(check 'realsort-bad (lumo_realsort1 1 "a") nil)
(check 'rlistsort2 (lumo_rlistsort2 '(3 "c") '(1 "a") '(2 "b")) '((1 "a") (2 "b") (3 "c")))
(check 'rlistsort1 (lumo_rlistsort1 '(1 "a") '(1.000001 "b") '(0 "z")) '((0 "z") (1 "a")))
(check 'rlistsort-points (lumo_rlistsort2 '(3.0 0.0 0.0) '(1.0 5.0 0.0)) '((1.0 5.0 0.0) (3.0 0.0 0.0)))
(check 'rlistsort-bad (lumo_rlistsort1 1 2) nil)

;;; deletions
(check 'rlistdel1 (lumo_rlistdel1 1 '(1 "a") '(2 "b") '(1 "c")) '((2 "b")))
(check 'rlistdel1-neighbours (lumo_rlistdel1 1 '(1 "a") '(1 "b") '(1 "c")) '((1 "b")))
(check 'rlistdel2 (lumo_rlistdel2 1 '(1 "a") '(2 "b") '(1 "c")) '((2 "b") (1 "c")))
(check 'rlistdel-text (lumo_rlistdel1 "b" '("a" 1) '("b" 2)) '(("a" 1)))
(check 'rlistdel-plain-element (lumo_rlistdel1 1 2 '(1 2)) nil)
(check 'rlistdel-list-target (lumo_rlistdel1 '(1 2) '(1 2)) nil)

(check-done)
