#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// One computer recorded at several times, in order. The first recording is present until Step
/// selects the next. One thread may step; any number may read the present recording. It holds no
/// lock, because a terminated monitor thread would leave it locked.
class RecordingSequence {
public:
    /// Takes at least one recording.
    explicit RecordingSequence(std::vector<std::shared_ptr<const RecordedHost>> recordings);

    std::shared_ptr<const RecordedHost> Present() const { return recordings_[present_]; }

    /// Makes the next recording the present one. Returns false, and does nothing, if there is none.
    bool Step();

    std::size_t Size() const { return recordings_.size(); }
    std::size_t Position() const { return present_; }  ///< of the present recording, from 0

private:
    std::vector<std::shared_ptr<const RecordedHost>> recordings_;
    std::atomic<std::size_t> present_ = 0;
};

}  // namespace qv::service
