#include "qvsata/view/OsDisk.h"

namespace qv::view {

Health HealthOf(const OsDisk& disk) {
    return WithPrediction(disk.health, disk.failureIsPredicted.value_or(false));
}

}  // namespace qv::view
