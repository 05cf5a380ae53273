#pragma once
// Collects what reaches the error sink while it lives, as formatted
// "file:line: message" lines, so that a test provoking reports keeps them
// off stderr and can assert on them. GUI test binary only (needs the library).
#include "xml/ErrorSink.h"

#include <string>
#include <vector>

namespace testsupport {

class ErrorCapture {
public:
    ErrorCapture()
        : m_previous(UIKit::ErrorSink::Install([this](const UIKit::PackError& e) { m_lines.push_back(e.Format()); }))
    {
    }
    ~ErrorCapture() { UIKit::ErrorSink::Install(m_previous); }
    ErrorCapture(const ErrorCapture&) = delete;
    ErrorCapture& operator=(const ErrorCapture&) = delete;

    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    UIKit::ErrorSink::Handler m_previous;
    std::vector<std::string> m_lines;
};

} // namespace testsupport
