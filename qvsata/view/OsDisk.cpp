#include "qvsata/view/OsDisk.h"

namespace qv::view {

Health HealthOf(const OsDisk& disk) {
    return WithPrediction(disk.health, disk.failureIsPredicted);
}

}  // namespace qv::view
