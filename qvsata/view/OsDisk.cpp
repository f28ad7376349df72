#include "qvsata/view/OsDisk.h"

#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {

Health HealthOf(const OsDisk& disk) {
    return WithPrediction(disk.health, disk.failureIsPredicted.value_or(false));
}

std::string PredictionWarnings(const OsDisks& all) {
    std::string lines;
    for (const std::string& device : all.failingOthers) {
        lines += "warning: a failure is predicted for a device that is no known disk: " +
                 Printable(device) + '\n';
    }
    for (const OsDisk& disk : all.disks) {
        if (all.predictionsAreRead && !disk.failureIsPredicted) {
            lines += "warning: disk " + DriveNumberText(disk.number) +
                     ": its failure-prediction row does not tell whether it will fail\n";
        }
    }
    return lines;
}

}  // namespace qv::view
