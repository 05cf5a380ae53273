#include "xml/ErrorSink.h"

#include "Toolkit/ILogger.h"

#include <cstdio>
#include <mutex>

namespace UIKit {

namespace {

std::mutex& lock()
{
    static std::mutex m;
    return m;
}

ErrorSink::Handler& handler()
{
    static ErrorSink::Handler h = &ErrorSink::WriteToStderr;
    return h;
}

} // namespace

std::string PackError::Format() const
{
    if (file.empty())
        return message;
    if (line <= 0)
        return file + ": " + message;
    return file + ":" + std::to_string(line) + ": " + message;
}

void ErrorSink::Report(const std::string& file, int line, const std::string& message)
{
    Report(PackError{file, line, message});
}

void ErrorSink::Report(const PackError& error)
{
    TK_LOG(Toolkit::LogError) << error.Format();
    std::lock_guard<std::mutex> guard(lock());
    if (handler())
        handler()(error);
}

ErrorSink::Handler ErrorSink::Install(Handler replacement)
{
    std::lock_guard<std::mutex> guard(lock());
    Handler previous = std::move(handler());
    handler() = replacement ? std::move(replacement) : Handler(&ErrorSink::WriteToStderr);
    return previous;
}

void ErrorSink::WriteToStderr(const PackError& error)
{
    std::fprintf(stderr, "%s\n", error.Format().c_str());
}

} // namespace UIKit
