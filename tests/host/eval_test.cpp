#include <gtest/gtest.h>

#include "host/test_support.h"
#include "lisp_test_support.h"

using lumo::test::Show;

TEST(Arithmetic, IntegersStayIntegersAndWrapAt32Bits) {
    EXPECT_EQ(Show("(/ 7 2)"), "3");
    EXPECT_EQ(Show("(/ -7 2)"), "-3");
    EXPECT_EQ(Show("(/ 7 2.0)"), "3.5");
    EXPECT_EQ(Show("(+ 2147483647 1)"), "-2147483648");
    EXPECT_EQ(Show("(* 65536 65536)"), "0");
    EXPECT_EQ(Show("(- 5)"), "-5");
    EXPECT_EQ(Show("(+)"), "0");
    EXPECT_EQ(Show("(rem 7 -2)"), "1");
    EXPECT_EQ(Show("(rem 7.5 2)"), "1.5");
    EXPECT_EQ(Show("(max 1 2.0)"), "2.0");
    EXPECT_EQ(Show("(expt 2 10)"), "1024");
    EXPECT_EQ(Show("(fix -3.7)"), "-3");
    EXPECT_EQ(Show("(lsh 1 4)"), "16");
    EXPECT_EQ(Show("(~ 5)"), "-6");
    EXPECT_EQ(Show("(gcd 12 18)"), "6");
}

TEST(Arithmetic, ErrorsReadAsTheHostPrintsThem) {
    EXPECT_EQ(Show("(/ 1 0)"), "error: divide by zero");
    EXPECT_EQ(Show("(/ 1.0 0)"), "error: divide by zero");
    EXPECT_EQ(Show("(+ 1 \"a\")"), "error: bad argument type: numberp: \"a\"");
    EXPECT_EQ(Show("(1+ nil)"), "error: bad argument type: numberp: nil");
    EXPECT_EQ(Show("(sqrt -1)"), "error: function undefined for argument: -1");
    EXPECT_EQ(Show("(repeat 1.5 1)"), "error: bad argument type: fixnump: 1.5");
}

TEST(Comparison, NumbersAndStrings) {
    EXPECT_EQ(Show("(= 1 1.0)"), "T");
    EXPECT_EQ(Show("(< 1 2 3)"), "T");
    EXPECT_EQ(Show("(< 1 3 2)"), "nil");
    EXPECT_EQ(Show("(< \"a\" \"b\")"), "T");
    EXPECT_EQ(Show("(/= 1 2)"), "T");
    EXPECT_EQ(Show("(equal '(1 (2.0 \"x\")) '(1 (2.0 \"x\")))"), "T");
    EXPECT_EQ(Show("(equal 1.0 1.05 0.1)"), "T");
    EXPECT_EQ(Show("(eq \"a\" \"a\")"), "nil");
    EXPECT_EQ(Show("(eq 'a 'A)"), "T");
}

TEST(Evaluator, DefunLocalsAndDynamicScope) {
    EXPECT_EQ(Show("(setq x 1) (defun f (/ x) (setq x 5) (g)) (defun g () x) (list (f) x)"), "(5 1)");
    // Bindings come back when the function fails.
    EXPECT_EQ(Show("(setq y 1) (defun h (y) (/ 1 0)) (vl-catch-all-apply 'h '(9)) y"), "1");
    EXPECT_EQ(Show("(defun two (a b) b) (two 1)"), "error: too few arguments");
    EXPECT_EQ(Show("(two 1 2 3)"), "error: too many arguments");
    EXPECT_EQ(Show("(undefined-fn 1)"), "error: no function definition: UNDEFINED-FN");
    EXPECT_EQ(Show("(1 2)"), "error: bad function: 1");
}

TEST(Evaluator, ControlForms) {
    EXPECT_EQ(Show("(setq i 0 s 0) (while (< i 5) (setq s (+ s i) i (1+ i))) s"), "10");
    EXPECT_EQ(Show("(setq n 0) (repeat 4 (setq n (+ n 2)))"), "8");
    EXPECT_EQ(Show("(setq acc nil) (foreach e '(1 2 3) (setq acc (cons e acc))) acc"), "(3 2 1)");
    EXPECT_EQ(Show("(cond ((= 1 2) 'a) ((+ 1 1)))"), "2");
    EXPECT_EQ(Show("(and 1 nil (/ 1 0))"), "nil");
    EXPECT_EQ(Show("(or nil 2)"), "T");
    EXPECT_EQ(Show("(if nil 1)"), "nil");
    EXPECT_EQ(Show("(mapcar '(lambda (a b) (+ a b)) '(1 2 3) '(10 20))"), "(11 22)");
    EXPECT_EQ(Show("(apply 'max '(3 9 2))"), "9");
    EXPECT_EQ(Show("((lambda (x) (* x x)) 7)"), "49");
    EXPECT_EQ(Show("(defun-q dq (a) (* a 3)) (dq 4)"), "12");
}

TEST(Evaluator, DeepRecursionEndsInAnError) {
    EXPECT_EQ(Show("(defun down (n) (+ 1 (down n))) (down 1)"), "error: stack overflow");
    EXPECT_EQ(Show("(defun count (n) (if (= n 0) 0 (+ 1 (count (1- n))))) (count 300)"), "300");
}

TEST(Lists, TheListFunctions) {
    EXPECT_EQ(Show("(cadr '(1 2 3))"), "2");
    EXPECT_EQ(Show("(car nil)"), "nil");
    EXPECT_EQ(Show("(car 5)"), "error: bad argument type: consp 5");
    EXPECT_EQ(Show("(append '(1) nil '(2 3))"), "(1 2 3)");
    EXPECT_EQ(Show("(nth 5 '(1 2))"), "nil");
    EXPECT_EQ(Show("(assoc 8 '((0 . \"LINE\") (8 . \"WALL\")))"), "(8 . \"WALL\")");
    EXPECT_EQ(Show("(subst 'q 'b '(a b (b) b))"), "(A Q (B) Q)");
    EXPECT_EQ(Show("(member 2.0 '(1 2.0 3))"), "(2.0 3)");
    EXPECT_EQ(Show("(vl-list* 1 2 '(3))"), "(1 2 3)");
    EXPECT_EQ(Show("(vl-list* 1 2)"), "(1 . 2)");
    EXPECT_EQ(Show("(vl-sort '(3 2 1 3) '<)"), "(1 2 3)");
    EXPECT_EQ(Show("(vl-sort-i '(\"b\" \"a\" \"c\") '<)"), "(1 0 2)");
    EXPECT_EQ(Show("(vl-remove-if 'minusp '(1 -2 3))"), "(1 3)");
    EXPECT_EQ(Show("(vl-position 'c '(a b c))"), "2");
    EXPECT_EQ(Show("(vl-some '= '(1 2) '(3 2))"), "T");
    EXPECT_EQ(Show("(vl-every 'numberp '(1 a))"), "nil");
    EXPECT_EQ(Show("(acad_strlsort '(\"b\" \"a\"))"), "(\"a\" \"b\")");
    EXPECT_EQ(Show("(length '(1 2 . 3))"), "error: bad argument type: listp (1 2 . 3)");
}

TEST(Lists, LongListsAreBuiltAndFreedWithoutRecursion) {
    EXPECT_EQ(Show("(setq l nil i 0) (repeat 200000 (setq l (cons i l))) (length l)"), "200000");
    EXPECT_EQ(Show("(setq l nil) 1"), "1");
}

TEST(Errors, CatchAllAndTheUserHandler) {
    EXPECT_EQ(Show("(vl-catch-all-error-message (vl-catch-all-apply 'car '(1)))"), "\"bad argument type: consp 1\"");
    EXPECT_EQ(Show("(vl-catch-all-apply '+ '(1 2))"), "3");
    EXPECT_EQ(Show("(vl-catch-all-error-message (vl-catch-all-apply 'exit nil))"), "\"quit / exit abort\"");

    CaptureOutput out;
    lumo::test::Run("(defun *error* (msg) (princ (strcat* msg)))");
    EXPECT_FALSE(lumo::lisp::RunText("(car 1)"));
    // The handler itself failed: its own error is printed plainly.
    EXPECT_EQ(out.Text(), "; error: no function definition: STRCAT*\n");
    lumo::test::Run("(defun *error* (msg) (princ (list 'handled msg)))");
    EXPECT_FALSE(lumo::lisp::RunText("(/ 1 0) (princ 'never)"));
    EXPECT_EQ(out.Text(), "; error: no function definition: STRCAT*\n(HANDLED divide by zero)");
    lumo::test::Run("(setq *error* nil)");
}
