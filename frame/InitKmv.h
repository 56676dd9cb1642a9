// The module's names and folder, set once at initialisation.
#pragma once

// With a non-null name, replaces both application-name texts; then finds the
// module's folder and reads the host's version.
void InitKmv(const char* applicationName);
