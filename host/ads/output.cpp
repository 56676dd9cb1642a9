// The host's command line output.
#include "host/ads/output.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "platform/acedads.h"
#include "platform/acutads.h"

namespace lumo::host {
namespace {
std::vector<std::string*>& Sinks() {
    static std::vector<std::string*> sinks;
    return sinks;
}
}  // namespace

void WriteOutput(const std::string& text) {
    if (!Sinks().empty()) {
        Sinks().back()->append(text);
        return;
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

void WriteError(const std::string& text) {
    if (!Sinks().empty()) {
        Sinks().back()->append(text);
        return;
    }
    std::fflush(stdout);
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

void BeginCapture(std::string* sink) { Sinks().push_back(sink); }
void EndCapture() {
    if (!Sinks().empty()) Sinks().pop_back();
}

}  // namespace lumo::host

int acutPrintf(const char* format, ...) {
    va_list ap;
    va_start(ap, format);
    va_list again;
    va_copy(again, ap);
    int n = std::vsnprintf(nullptr, 0, format, ap);
    va_end(ap);
    std::string text(n > 0 ? static_cast<size_t>(n) : 0, '\0');
    if (n > 0) std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    lumo::host::WriteOutput(text);
    return n;
}

// A module's failure report, printed the way the host prints it.
int acdbFail(const char* message) {
    lumo::host::WriteOutput(std::string("\n") + (message ? message : ""));
    return RTNORM;
}
