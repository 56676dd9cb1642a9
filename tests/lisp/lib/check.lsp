;;; A small harness for LISP tests run through lumo.
;;; (check 'name value expected) compares with equal (fuzz 1e-9);
;;; (check-error 'name '(form) "message") expects the form to fail with the message;
;;; (check-done) prints "N passed, N failed" and fails the run if any check failed.

(setq *check-passed* 0 *check-failed* 0)

(defun check-fail (name got expected)
  (setq *check-failed* (1+ *check-failed*))
  (princ (strcat "\nFAIL " (vl-prin1-to-string name) ": got " (vl-prin1-to-string got)
                 ", expected " (vl-prin1-to-string expected) "\n"))
  nil)

(defun check (name got expected)
  (if (equal got expected 1e-9)
    (setq *check-passed* (1+ *check-passed*))
    (check-fail name got expected))
  (princ))

(defun check-error (name form message / result)
  (setq result (vl-catch-all-apply 'eval (list form)))
  (if (and (vl-catch-all-error-p result)
           (= (vl-catch-all-error-message result) message))
    (setq *check-passed* (1+ *check-passed*))
    (check-fail name
                (if (vl-catch-all-error-p result) (vl-catch-all-error-message result) result)
                message))
  (princ))

(defun check-done ()
  (princ (strcat "\n" (itoa *check-passed*) " passed, " (itoa *check-failed*) " failed\n"))
  (if (> *check-failed* 0) (exit))
  (princ))
