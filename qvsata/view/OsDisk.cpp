#include "qvsata/view/OsDisk.h"

namespace qv::view {

Health HealthOf(const OsDisk& disk) {
    constexpr std::int64_t predictedFailure = 5;
    if (disk.failureIsPredicted && disk.health.code == 2) {
        return {predictedFailure, disk.health.word + ", failure predicted"};
    }
    return disk.health;
}

}  // namespace qv::view
