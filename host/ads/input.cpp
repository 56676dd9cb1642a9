#include "host/ads/input.h"

#include <deque>
#include <iostream>
#include <utility>

namespace lumo::host {
namespace {

std::string gTyped;
std::deque<std::string> gAnswers;
bool gInteractive = false;

}  // namespace

void PushTypedInput(const std::string& text) { gTyped += text; }

std::string TakeTypedInput() { return std::exchange(gTyped, {}); }

bool HasTypedInput() { return !gTyped.empty(); }

bool ReadTypedLine(std::string& line) {
    if (gTyped.empty()) return false;
    size_t end = gTyped.find('\n');
    line = gTyped.substr(0, end);
    gTyped.erase(0, end == std::string::npos ? gTyped.size() : end + 1);
    return true;
}

void SetAnswers(std::vector<std::string> lines) { gAnswers.assign(lines.begin(), lines.end()); }

void SetInteractiveInput(bool on) { gInteractive = on; }

bool ReadInputLine(std::string& line) {
    if (ReadTypedLine(line)) return true;
    if (!gAnswers.empty()) {
        line = std::move(gAnswers.front());
        gAnswers.pop_front();
        if (!line.empty() && line.back() == '\r') line.pop_back();
        return true;
    }
    if (gInteractive && std::getline(std::cin, line)) return true;
    return false;
}

}  // namespace lumo::host
