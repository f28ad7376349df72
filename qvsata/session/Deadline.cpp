#include "qvsata/session/Deadline.h"

#include <utility>

namespace qv::tool {

Deadline::Deadline(std::chrono::milliseconds time, std::function<void()> onExpiry)
    : thread_([this, time, onExpiry = std::move(onExpiry)] {
          std::unique_lock lock(mutex_);
          if (!ended_.wait_for(lock, time, [this] { return isEnded_; })) {
              onExpiry();
          }
      }) {}

Deadline::~Deadline() {
    {
        const std::lock_guard guard(mutex_);
        isEnded_ = true;
    }
    ended_.notify_one();
    thread_.join();
}

}  // namespace qv::tool
