#include "source/DiskInventory.h"

#include <algorithm>
#include <chrono>

#include "source/HostIdentity.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/StatusMap.h"
#include "source/Text.h"

namespace qv {
namespace {

constexpr std::int64_t staleAfter = 30;  // seconds
constexpr std::chrono::milliseconds lockSlice{100};

/// Holds a named lock; waits for it without a timeout.
class HeldLock {
public:
    explicit HeldLock(platform::NamedLock& lock) : lock_(lock) {
        while (!lock_.TryAcquireFor(lockSlice)) {
        }
    }
    HeldLock(const HeldLock&) = delete;
    HeldLock& operator=(const HeldLock&) = delete;
    ~HeldLock() { lock_.Release(); }

private:
    platform::NamedLock& lock_;
};

DiskRecord DescribeDisk(const platform::Row& disk, const std::string& upperDeviceId,
                        const platform::HostFacts& host) {
    DiskRecord record;
    record.deviceId = EncodeDeviceId(upperDeviceId);
    record.status = TextOrEmpty(disk, "Status");
    record.systemName = HostName(host).value_or("Not Available");
    record.systemCreationClassName = GetComputerSystemClassName();
    record.creationClassName = "QV_SATADiskDrive";
    record.caption = TextOrEmpty(disk, "Caption");
    record.description = TextOrEmpty(disk, "Description");
    record.name = record.description;
    record.model = TextOrEmpty(disk, "Model");
    std::vector<std::string> codes;
    std::vector<std::string> descriptions;
    record.statusCode = static_cast<std::uint32_t>(
        MapStatusToOperationalStatus(record.status, codes, descriptions));
    record.statusDescriptions = JoinList(descriptions);
    return record;
}

FailurePredictList DescribePredictions(const platform::Rows& rows) {
    FailurePredictList predictions;
    for (const auto& row : rows) {
        predictions.push_back(
            {ToUpper(TextOrEmpty(*row, "InstanceName")), TextOrEmpty(*row, "PredictFailure")});
    }
    return predictions;
}

}  // namespace

std::optional<WatchedDisks> ReadWatchedDisks(const platform::QueryPort& queries,
                                             const platform::HostFacts& host) {
    platform::Rows disks;
    platform::Rows predictionRows;
    const Status diskQuery =
        queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_DiskDrive", disks);
    const Status predictionQuery = queries.RunWqlQuery(
        wmiNamespace, "SELECT * FROM MSStorageDriver_FailurePredictStatus", predictionRows);
    if (!Succeeded(diskQuery) || !Succeeded(predictionQuery)) {
        return std::nullopt;
    }
    const FailurePredictList predictions = DescribePredictions(predictionRows);
    WatchedDisks watched;
    for (const auto& disk : disks) {
        if (!IsIdeDisk(*disk)) {
            continue;
        }
        const std::string deviceId = ToUpper(TextOrEmpty(*disk, "PNPDeviceID"));
        for (const FailurePredictRecord& prediction : predictions) {
            if (IsPredictionOf(prediction.instanceName, deviceId)) {
                watched.disks.push_back(DescribeDisk(*disk, deviceId, host));
                watched.predictions.push_back(prediction);
            }
        }
    }
    return watched;
}

DiskInventory::DiskInventory(const platform::QueryPort& queries, const platform::HostFacts& host,
                             const platform::Clock& clock, platform::NamedLock& lock)
    : queries_(queries),
      host_(host),
      clock_(clock),
      lock_(lock),
      lastRefresh_(clock.SecondsSince1970()) {}

/// Finds the disks anew; when a source query fails, all stays as it was.
void DiskInventory::RebuildDiskInventory() {
    std::optional<WatchedDisks> found = ReadWatchedDisks(queries_, host_);
    if (!found) {
        return;
    }
    const std::lock_guard guard(members_);
    disks_.swap(found->disks);
    failurePredictions_.swap(found->predictions);
    matchedDisks_ = static_cast<std::int32_t>(disks_.size());
}

int DiskInventory::RefreshDiskInventoryNow() {
    const HeldLock held(lock_);
    RebuildDiskInventory();
    return 0;
}

void DiskInventory::RefreshDiskInventoryIfStale(bool monitorRuns) {
    if (!ClaimRefresh()) {
        return;
    }
    if (!monitorRuns) {
        RefreshDiskInventoryNow();
    }
    const std::lock_guard guard(members_);
    use_ = Use::later;
}

/// Returns whether a refresh is due; if so, records it as done now.
bool DiskInventory::ClaimRefresh() {
    const std::lock_guard guard(members_);
    const std::int64_t now = clock_.SecondsSince1970();
    if (use_ == Use::none) {
        use_ = Use::first;
    }
    if (use_ != Use::first && now <= lastRefresh_ + staleAfter) {
        return false;
    }
    lastRefresh_ = clock_.SecondsSince1970();
    return true;
}

DiskList DiskInventory::Disks() const {
    const std::lock_guard guard(members_);
    return disks_;
}

FailurePredictList DiskInventory::FailurePredictions() const {
    const std::lock_guard guard(members_);
    return failurePredictions_;
}

std::int32_t DiskInventory::MatchedDisks() const {
    const std::lock_guard guard(members_);
    return matchedDisks_;
}

void DiskInventory::KeepDisksAsPrevious() {
    const std::lock_guard guard(members_);
    previousDisks_ = disks_;
}

void DiskInventory::SetRefreshTimeout(std::uint32_t timeout) {
    const std::lock_guard guard(members_);
    refreshTimeout_ = timeout;
}

std::uint32_t DiskInventory::RefreshTimeout() const {
    const std::lock_guard guard(members_);
    return refreshTimeout_;
}

}  // namespace qv
