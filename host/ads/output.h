// Where the host's command line goes: standard output, or a capture buffer.
#pragma once
#include <string>

namespace lumo::host {

// Writes text to the command line.
void WriteOutput(const std::string& text);
// Writes an error report: standard error, or the capture buffer.
void WriteError(const std::string& text);
// While a capture is active, output is appended to it instead of printed.
void BeginCapture(std::string* sink);
void EndCapture();

}  // namespace lumo::host
