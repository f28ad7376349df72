#pragma once

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace qv::test {

/// Calls as a stand-in recorded them, in order. Any thread may add to it, also one that is ended by
/// force wherever it stands: there is no lock that would outlive its owner.
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

    /// Forgets the calls so far. Nobody calls All at the same time.
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
