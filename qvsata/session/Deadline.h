#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace qv::tool {

/// Calls a function, on a thread of its own, when a time is over. The destructor cancels the call,
/// or waits for one that has begun.
class Deadline {
public:
    Deadline(std::chrono::milliseconds time, std::function<void()> onExpiry);
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline();

private:
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isEnded_ = false;
    std::thread thread_;
};

}  // namespace qv::tool
