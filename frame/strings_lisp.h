// The LISP string family (lumo_string_*), lumo_gettime and lumo_getrandstr.
#pragma once

int lumo_string_right();
int lumo_string_left();
int lumo_string_mid();
int lumo_string_SpanIncluding();
int lumo_string_SpanExcluding();
int lumo_string_Reverse();
int lumo_string_replace();
int lumo_string_Subst();
int lumo_string_Find();
int lumo_string_Insert();
int lumo_string_Remove();
int lumo_string_TrimRight();
int lumo_string_TrimLeft();
int lumo_string_FindOneOf();
int lumo_string_format();
int lumo_string_tok();
int lumo_string_split();
int lumo_string_join();
int lumo_gettime();
int lumo_getrandstr();

// The year and the time of day from CDATE: "YYYY" followed by the digits
// behind CDATE's point. `out` takes at least 64 bytes.
void DateTimeString(char* out);
