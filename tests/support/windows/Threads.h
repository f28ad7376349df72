#pragma once

#include <thread>
#include <vector>

namespace qv::test {

/// Runs `work(thread)` on `count` threads at once, numbered from 0, and waits for all of them.
template <typename Work>
void RunOnThreads(int count, const Work& work) {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < count; ++thread) {
        threads.emplace_back([&work, thread] { work(thread); });
    }
}

/// Calls `work` `times` times.
template <typename Work>
void Repeat(int times, const Work& work) {
    for (int time = 0; time < times; ++time) {
        work();
    }
}

}  // namespace qv::test
