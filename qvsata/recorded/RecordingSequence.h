#pragma once

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::service {

/// One computer as it was recorded at several times, in their order. The first recording is the
/// present one until somebody steps to the next. One thread steps, any number may ask for the
/// present recording; there is no lock that a thread ended by force could leave behind.
class RecordingSequence {
public:
    /// At least one recording.
    explicit RecordingSequence(std::vector<std::shared_ptr<const RecordedHost>> recordings);

    std::shared_ptr<const RecordedHost> Present() const { return recordings_[present_]; }

    /// Makes the next recording the present one; false, and nothing done, when there is none.
    bool Step();

    std::size_t Size() const { return recordings_.size(); }
    std::size_t Position() const { return present_; }  ///< of the present one, counted from 0

private:
    std::vector<std::shared_ptr<const RecordedHost>> recordings_;
    std::atomic<std::size_t> present_ = 0;
};

}  // namespace qv::service
