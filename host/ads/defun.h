// LISP functions that modules define.
#pragma once

namespace lumo::host {
struct Application;
// Unbinds every LISP name the application defined.
void UndefineApplication(const Application& app);
}
