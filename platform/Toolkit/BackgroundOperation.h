#pragma once
// A piece of work handed to the ThreadPool; DoOperation runs once, on one of
// the pool's threads, never on the caller's.

namespace Toolkit {

class BackgroundOperation {
public:
    virtual ~BackgroundOperation() = default;
    virtual void DoOperation() = 0;
};

} // namespace Toolkit
