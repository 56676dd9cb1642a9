// Helpers for tests that drive the host from C++.
#pragma once
#include <string>

#include "host/ads/output.h"

// Captures what the host prints while it lives.
class CaptureOutput {
public:
    CaptureOutput() { lumo::host::BeginCapture(&m_text); }
    ~CaptureOutput() { lumo::host::EndCapture(); }
    CaptureOutput(const CaptureOutput&) = delete;
    CaptureOutput& operator=(const CaptureOutput&) = delete;
    const std::string& Text() const { return m_text; }
private:
    std::string m_text;
};
