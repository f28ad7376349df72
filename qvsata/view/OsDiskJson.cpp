#include "qvsata/view/OsDiskJson.h"

#include "qvsata/view/JsonValues.h"
#include "qvsata/view/SerialNumber.h"

namespace qv::view {

nlohmann::ordered_json OsDiskAsJson(const OsDisk& disk) {
    return {{"number", OrNull(disk.number)},
            {"model", OrNull(disk.model)},
            {"size", OrNull(disk.size)},
            {"serialNumber", OrNull(disk.serialNumber)},
            {"decodedSerialNumber", OrNull(DecodedSerialNumber(disk.serialNumber))},
            {"firmware", OrNull(disk.firmware)},
            {"bus", OrNull(disk.bus)},
            {"attachedTo", OrNull(disk.attachmentName)},
            {"attachedToId", OrNull(disk.attachment)},
            {"deviceId", OrNull(disk.deviceId)},
            {"status", StatusAsJson(disk.health)},
            {"failurePredicted", OrNull(disk.failureIsPredicted)},
            {"published", disk.whyUnpublished.empty()},
            {"whyUnpublished", OrNull(disk.whyUnpublished)},
            {"watched", disk.whyUnwatched.empty()},
            {"whyUnwatched", OrNull(disk.whyUnwatched)}};
}

}  // namespace qv::view
