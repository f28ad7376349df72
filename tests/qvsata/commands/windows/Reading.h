#pragma once

#include <windows.h>

#include <array>
#include <condition_variable>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/windows/Handle.h"

namespace qv::test {

/// Reads a pipe on a thread of its own, to its end or to an end mark.
class Reading {
public:
    /// What a test writes behind the output of a process that has ended. A pipe ends only when all
    /// its writers have closed it, and a service that the process started may have inherited it.
    static constexpr std::string_view endMark = "\x1D(end)\x1D";

    /// `pipe`: the read end.
    explicit Reading(windows::KernelHandle pipe)
        : reader_(std::move(pipe)), thread_([this] { Run(); }) {}
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
    ~Reading() { Join(); }

    /// Waits for `text`; returns false if the pipe ended without it.
    bool Await(const std::string& text) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return done_ || text_.find(text) != std::string::npos; });
        return text_.find(text) != std::string::npos;
    }

    /// Waits for the end; returns all that was read before it.
    std::string Finish() {
        Join();
        return text_;
    }

private:
    void Join() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    void Run() {
        std::array<char, 4096> buffer{};
        DWORD read = 0;
        while (ReadFile(reader_.Get(), buffer.data(), static_cast<DWORD>(buffer.size()), &read,
                        nullptr) &&
               read != 0) {
            const std::lock_guard lock(mutex_);
            text_.append(buffer.data(), read);
            if (text_.ends_with(endMark)) {
                text_.resize(text_.size() - endMark.size());
                break;
            }
            changed_.notify_all();
        }
        const std::lock_guard lock(mutex_);
        done_ = true;
        changed_.notify_all();
    }

    windows::KernelHandle reader_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string text_;
    bool done_ = false;
    std::thread thread_;
};

}  // namespace qv::test
