;;; The interpreter as a writer of LISP programs sees it.
(load "check.lsp")

;;; recursion, scope and higher-order functions
(defun fact (n) (if (< n 2) 1 (* n (fact (1- n)))))
(check 'recursion (fact 10) 3628800)
(check 'overflow-wraps (fact 13) 1932053504)
(defun sum-list (l / s) (setq s 0) (foreach x l (setq s (+ s x))) s)
(check 'foreach (sum-list '(1 2 3 4)) 10)
(check 'mapcar-lambda (mapcar '(lambda (x) (* x x)) '(1 2 3)) '(1 4 9))
(check 'mapcar-function (mapcar (function 1+) '(1 2)) '(2 3))
(check 'apply (apply '+ '(1 2 3)) 6)
(setq counter 0)
(defun bump (/ counter) (setq counter 99))
(bump)
(check 'locals-restored counter 0)

;;; errors caught and read
(setq r (vl-catch-all-apply '/ '(1 0)))
(check 'catch-error-p (vl-catch-all-error-p r) T)
(check 'catch-message (vl-catch-all-error-message r) "divide by zero")
(check 'catch-ok (vl-catch-all-apply 'strcat '("a" "b")) "ab")
(check-error 'bad-type '(+ 1 "a") "bad argument type: numberp: \"a\"")
(check-error 'bad-type-after-real '(* 1.5 nil) "bad argument type: numberp: nil")
(check-error 'too-few '(fact) "too few arguments")
(check-error 'no-function '(no-such-fn) "no function definition: NO-SUCH-FN")

;;; numbers
(check 'int-division (/ 7 2) 3)
(check 'real-division (/ 7 2.0) 3.5)
(check 'mixed (+ 1 2.5) 3.5)
(check 'fix-float (list (fix 2.9) (float 2)) '(2 2.0))
(check 'atan2 (atan 1 1) (/ pi 4))
(check 'type-of (mapcar 'type (list 1 1.0 "s" 'a '(1) car)) '(INT REAL STR SYM LIST SUBR))

;;; strings and printing
(check 'strcat (strcat "ab" "cd") "abcd")
(check 'prin1-string (vl-prin1-to-string "a\"b") "\"a\\\"b\"")
(check 'princ-string (vl-princ-to-string '(1 "a" 2.5)) "(1 a 2.5)")
(check 'read-back (read "(1 (2 . 3) \"x\")") '(1 (2 . 3) "x"))
(check 'eval-read (eval (read "(+ 1 2)")) 3)

;;; lists
(check 'assoc-dxf (cdr (assoc 8 '((0 . "LINE") (8 . "WALL")))) "WALL")
(check 'sort (vl-sort '(3 1 2) '<) '(1 2 3))
(check 'remove-if-not (vl-remove-if-not 'numberp '(1 a 2)) '(1 2))
(check 'member-if (vl-member-if 'minusp '(1 -2 3)) '(-2 3))
(check 'dotted (cons 1 2) '(1 . 2))

(check-done)
