#pragma once

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace qv::test {

/// The calls that a stand-in recorded, in order. Any thread may append, even one that can be
/// terminated at any point: the list has no lock that could outlive its owner.
template <typename Call>
class CallList {
public:
    CallList() = default;
    CallList(const CallList&) = delete;
    CallList& operator=(const CallList&) = delete;
    ~CallList() { Clear(); }

    void Add(Call call) {
        auto* const node = new Node{std::move(call), last_};
        while (!last_.compare_exchange_weak(node->former, node)) {
        }
    }

    std::vector<Call> All() const {
        std::vector<Call> calls;
        for (const Node* node = last_; node != nullptr; node = node->former) {
            calls.push_back(node->call);
        }
        std::ranges::reverse(calls);
        return calls;
    }

    /// Forgets the calls so far. Must not run at the same time as All.
    void Clear() {
        for (Node* node = last_.exchange(nullptr); node != nullptr;) {
            delete std::exchange(node, node->former);
        }
    }

private:
    struct Node {
        Call call;
        Node* former;
    };

    std::atomic<Node*> last_ = nullptr;
};

}  // namespace qv::test
