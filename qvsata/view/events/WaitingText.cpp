#include "qvsata/view/events/WaitingText.h"

namespace qv::view {
namespace {

std::string NextLook(const SeenRecording& seen) {
    if (seen.count <= 1) {
        return "looking at the disks again";
    }
    const bool isLast = seen.number == seen.count;
    return "looking at recording " + std::to_string(isLast ? seen.number : seen.number + 1) +
           " of " + std::to_string(seen.count) + (isLast ? " again" : "");
}

}  // namespace

std::string WaitingText(const SeenRecording& seen, std::chrono::milliseconds left) {
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
    return NextLook(seen) + " in " + std::to_string(seconds) + " s";
}

}  // namespace qv::view
