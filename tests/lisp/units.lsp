;;; Distances and angles as text: rtos and angtos share the formatting that
;;; the module reaches through acdbRToS and acdbAngToS. The corners: signs,
;;; carries into the next inch or foot, zero, huge values, precision 0 and 8,
;;; and the zero suppression of DIMZIN.
(load "check.lsp")

(setq old-dimzin (getvar "DIMZIN"))
(setvar "DIMZIN" 0)

;;; the documented forms
(check 'scientific (rtos 17.5 1 4) "1.7500E+01")
(check 'decimal (rtos 17.5 2 2) "17.50")
(check 'engineering (rtos 17.5 3 2) "1'-5.50\"")
(check 'architectural (rtos 17.5 4 2) "1'-5 1/2\"")
(check 'fractional (rtos 17.5 5 2) "17 1/2")

;;; negative values
(check 'negative-scientific (rtos -17.5 1 2) "-1.75E+01")
(check 'negative-decimal (rtos -2.5 2 0) "-3")
(check 'negative-engineering (rtos -17.5 3 2) "-1'-5.50\"")
(check 'negative-architectural (rtos -17.5 4 2) "-1'-5 1/2\"")
(check 'negative-fraction-only (rtos -0.5 5 2) "-1/2")
(check 'negative-rounds-to-zero (rtos -0.0001 2 2) "0.00")
(check 'negative-rounds-to-zero-inches (rtos -0.0001 3 2) "0.00\"")

;;; rounding carries into the next inch and foot
(check 'carry-inch (rtos 2.999 4 2) "3\"")
(check 'carry-inch-with-feet (rtos 14.99 4 4) "1'-3\"")
(check 'carry-foot-architectural (rtos 23.999 4 2) "2'")
(check 'carry-foot-engineering (rtos 23.999 3 2) "2'")
(check 'carry-foot-engineering-2 (rtos 11.9999 3 2) "1'")
(check 'carry-decimal (rtos 9.9999 2 2) "10.00")
(check 'carry-exponent (rtos 9.99 1 1) "1.0E+01")
(check 'carry-fraction (rtos 1.99 5 2) "2")

;;; zero
(check 'zero-scientific (rtos 0 1 2) "0.00E+00")
(check 'zero-decimal (rtos 0 2 2) "0.00")
(check 'zero-engineering (rtos 0 3 2) "0.00\"")
(check 'zero-architectural (rtos 0 4 2) "0\"")
(check 'zero-fractional (rtos 0 5 2) "0")

;;; huge values go out in scientific form in every mode
(check 'huge-decimal (rtos 1e20 2 2) "1.00E+20")
(check 'huge-negative (rtos -1e20 2 2) "-1.00E+20")
(check 'huge-architectural (rtos 1e20 4 2) "1.00E+20")
(check 'huge-fractional (rtos 1e20 5 2) "1.00E+20")
(check 'large-decimal (rtos 123456789.0 2 2) "123456789.00")
(check 'large-architectural (rtos 1000000.0 4 0) "83333'-4\"")

;;; precision 0 and 8
(check 'prec0-scientific (rtos 17.5 1 0) "2E+01")
(check 'prec0-decimal (rtos 17.5 2 0) "18")
(check 'prec0-engineering (rtos 17.5 3 0) "1'-6\"")
(check 'prec0-architectural (rtos 17.5 4 0) "1'-6\"")
(check 'prec0-fractional (rtos 17.5 5 0) "18")
(check 'prec8-scientific (rtos 1.23456789 1 8) "1.23456789E+00")
(check 'prec8-decimal (rtos 1.23456789 2 8) "1.23456789")
(check 'prec8-architectural (rtos (/ 1.0 256) 4 8) "1/256\"")
(check 'prec8-smallest-step (rtos (/ 1.0 512) 4 8) "1/256\"")
(check 'prec8-fraction-reduced (rtos 0.5 5 8) "1/2")
(check 'prec8-whole-foot (rtos 12.00001 4 8) "1'")

;;; DIMZIN
(setvar "DIMZIN" 1)
(check 'dimzin1-zero-feet (rtos 3.5 4 1) "0'-3 1/2\"")
(check 'dimzin1-zero-inches (rtos 12.0 4 1) "1'-0\"")
(setvar "DIMZIN" 2)
(check 'dimzin2-zero-feet (rtos 3.5 3 1) "0'-3.5\"")
(check 'dimzin2-no-zero-inches (rtos 12.0 3 1) "1'")
(setvar "DIMZIN" 3)
(check 'dimzin3-no-zero-feet (rtos 3.5 3 1) "3.5\"")
(check 'dimzin3-zero-inches (rtos 12.0 3 1) "1'-0.0\"")
(setvar "DIMZIN" 12)
(check 'dimzin12-both-ends (rtos 0.50 2 4) ".5")
(check 'dimzin12-zero (rtos 0.0 2 4) "0")
(check 'dimzin12-scientific (rtos 15.0 1 4) "1.5E+01")
(check 'dimzin12-angle (angtos (/ pi 2) 0 4) "90")
(setvar "DIMZIN" 0)

;;; angles
(check 'angle-degrees (angtos 0.785398 0 4) "45.0000")
(check 'angle-dms (angtos 0.785398 1 4) "45d0'0\"")
(check 'angle-grads (angtos 0.785398 2 4) "50.0000g")
(check 'angle-radians (angtos 0.785398 3 4) "0.7854r")
(check 'angle-surveyor (angtos 0.785398 4 4) "N 45d0'0\" E")
(check 'angle-negative (angtos (- (/ pi 2)) 0 2) "270.00")
(check 'angle-negative-surveyor (angtos -0.785398 4 0) "S 45d E")
(check 'angle-west (angtos (- pi) 4 0) "W")
(check 'angle-past-a-turn (angtos (* 3 pi) 3 2) "3.14r")
(check 'angle-zero (angtos 0 0 0) "0")
(check 'angle-zero-dms (angtos 0 1 0) "0d")
(check 'angle-full-turn-rounds-to-zero (angtos (- (* 2 pi) 1e-9) 0 4) "0.0000")
(check 'angle-prec0-grads (angtos 1.0 2 0) "64g")
(check 'angle-prec8-degrees (angtos (/ pi 4) 0 8) "45.00000000")
(check 'angle-prec8-radians (angtos 1.0 3 8) "1.00000000r")
(check 'angle-prec8-dms (angtos (/ pi 3) 1 8) "60d0'0.0000\"")
(check 'angle-prec8-surveyor (angtos 0.1 4 8) "N 84d16'13.5194\" E")
(check 'angle-dms-minutes (angtos (* 45.5 (/ pi 180)) 1 2) "45d30'")
(check 'angle-dms-carry (angtos (* (+ 10 (/ 59.0 60) (/ 59.9 3600)) (/ pi 180)) 1 4) "11d0'0\"")

(setvar "DIMZIN" old-dimzin)

;; UNITMODE 1 writes feet and inches as they are typed
(setvar "UNITMODE" 1)
(check 'unitmode-architectural (rtos 17.5 4 2) "1'5-1/2\"")
(setvar "UNITMODE" 0)
(check 'unitmode-back (rtos 17.5 4 2) "1'-5 1/2\"")
(check-done)
