#pragma once

#include <string>
#include <utility>
#include <vector>

#include "qvsata/view/diff/HostDiff.h"
#include "source/StatusMap.h"
#include "source/Text.h"
#include "tests/qvsata/view/OsDisks.h"

namespace qv::test {

/// Returns a disk with an ID and the code of a status.
inline view::OsDisk DiskOfId(std::int64_t number, const std::string& deviceId,
                             const std::string& status) {
    std::vector<std::string> ignored;
    view::OsDisk disk =
        NumberedDisk(number, {MapStatusToOperationalStatus(status, ignored, ignored), status});
    disk.model = "Model";
    disk.deviceId = deviceId;
    return disk;
}

/// Returns a machine without instances whose disks are all watched.
inline view::Snapshot SnapshotOf(std::string name, std::vector<view::OsDisk> disks) {
    view::Snapshot snapshot;
    snapshot.name = std::move(name);
    snapshot.computer = "host";
    snapshot.watched.emplace();
    for (const view::OsDisk& disk : disks) {
        DiskRecord record;
        record.systemName = "host";
        record.model = disk.model;
        record.deviceId = EncodeDeviceId(ToUpper(disk.deviceId));
        record.statusCode = static_cast<std::uint32_t>(*disk.health.code);
        snapshot.watched->push_back(std::move(record));
    }
    snapshot.disks.disks = std::move(disks);
    return snapshot;
}

}  // namespace qv::test
