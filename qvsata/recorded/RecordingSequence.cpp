#include "qvsata/recorded/RecordingSequence.h"

#include <utility>

namespace qv::service {

RecordingSequence::RecordingSequence(std::vector<std::shared_ptr<const RecordedHost>> recordings)
    : recordings_(std::move(recordings)) {}

bool RecordingSequence::Step() {
    const std::size_t next = present_ + 1;
    if (next == recordings_.size()) {
        return false;
    }
    present_ = next;
    return true;
}

}  // namespace qv::service
