#pragma once

#include <mutex>
#include <utility>
#include <vector>

namespace qv::test {

/// Calls as a stand-in recorded them, in order; any thread may add to it.
template <typename Call>
class CallList {
public:
    void Add(Call call) {
        const std::lock_guard lock(mutex_);
        calls_.push_back(std::move(call));
    }

    std::vector<Call> All() const {
        const std::lock_guard lock(mutex_);
        return calls_;
    }

    /// Forgets the calls so far and the room that they took.
    void Clear() {
        const std::lock_guard lock(mutex_);
        std::vector<Call>().swap(calls_);
    }

private:
    mutable std::mutex mutex_;
    std::vector<Call> calls_;
};

}  // namespace qv::test
