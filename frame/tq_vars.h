// System-variable access of the older C layer.
#pragma once

// Reads a system variable as text into `out` (numbers formatted); RTNORM or
// the host's status.
int tq_getvar(const char* name, char* out);
