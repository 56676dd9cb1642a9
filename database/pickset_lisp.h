// The LISP functions on selection sets: algebra, the numbered slots, the
// history of saved sets and the mark.
#pragma once

int lumo_PickSet_Union();
int lumo_PickSet_Subtract();
int lumo_PickSet_Intersect();
int lumo_getss();
int c_lumo_getss();
int c_pp();
int lumo_savssnum();
int c_lumo_savsslink();
int lumo_setmark();
int c_lumo_setmark();
int C_P1();
int C_P2();
int C_P3();
int C_P4();
int C_P5();
int C_P6();
int C_P7();
int C_P8();
int C_P9();
