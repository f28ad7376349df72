#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/HostFacts.h"
#include "platform/NamedLock.h"
#include "platform/QueryPort.h"

namespace qv {

/// A disk of interface type IDE that has a failure-prediction row, as the events describe it. A
/// text that the source cannot read is empty.
struct DiskRecord {
    std::string systemCreationClassName;  ///< "QV_WinComputerSystem"
    std::string creationClassName;        ///< "QV_SATADiskDrive"
    std::string systemName;               ///< the host's name, or "Not Available"
    std::string caption;
    std::string description;
    std::string model;
    std::string name;              ///< the description again, on purpose
    std::uint32_t statusCode = 0;  ///< of MapStatusToOperationalStatus
    std::string statusDescriptions;
    std::string deviceId;  ///< the plug-and-play device ID in upper case, EncodeDeviceId applied
    std::string status;    ///< the source's status text

    bool operator==(const DiskRecord&) const = default;
};

/// The failure-prediction row that made a disk part of the inventory.
struct FailurePredictRecord {
    std::string instanceName;  ///< in upper case
    std::string predictFailure;

    bool operator==(const FailurePredictRecord&) const = default;
};

using DiskList = std::vector<DiskRecord>;
using FailurePredictList = std::vector<FailurePredictRecord>;

/// The disks whose changes raise events, each with its failure-prediction row at the same place.
struct WatchedDisks {
    DiskList disks;
    FailurePredictList predictions;
};

/// Finds the watched disks; returns nothing if a source query fails.
std::optional<WatchedDisks> ReadWatchedDisks(const platform::QueryPort& queries,
                                             const platform::HostFacts& host);

/// The only cache of the host's disks, for the monitor of disk events: the disks of the last
/// rebuild and those of the monitor's previous cycle. One object serves the whole process; any
/// thread may call any operation at any time.
///
/// The named lock serialises rebuilds, including their source queries, among all users of its name.
/// A separate lock guards the members; it is never held during a query or during a call into other
/// code.
class DiskInventory {
public:
    /// All arguments must outlive the object. Reads the clock: the inventory's age counts from
    /// here.
    DiskInventory(const platform::QueryPort& queries, const platform::HostFacts& host,
                  const platform::Clock& clock, platform::NamedLock& lock);

    /// Rebuilds the lists of disks and of their failure-prediction rows, in the same order, under
    /// the named lock, for which it waits without a timeout. If a source query fails, changes
    /// nothing. Always returns 0: callers do not care whether a source failed.
    int RefreshDiskInventoryNow();

    /// Refreshes at the first call, and later if more than 30 seconds have passed since the last
    /// call that did. If `monitorRuns`, leaves the refresh to the monitor.
    void RefreshDiskInventoryIfStale(bool monitorRuns);

    /// Return the result of the last rebuild.
    DiskList Disks() const;
    FailurePredictList FailurePredictions() const;
    std::int32_t MatchedDisks() const;

    /// Keeps the disks of the last rebuild as those of the previous cycle.
    void KeepDisksAsPrevious();

    /// Returns compare(disks of the last rebuild, disks of the previous cycle), which may change
    /// the latter. It runs under the member lock.
    template <typename Comparison>
    auto CompareWithPrevious(Comparison compare) {
        const std::lock_guard guard(members_);
        return compare(std::as_const(disks_), previousDisks_);
    }

    /// The configured refresh timeout; 0 if none is set. Nothing here uses it.
    void SetRefreshTimeout(std::uint32_t timeout);
    std::uint32_t RefreshTimeout() const;

    /// Locks the members while the result lives. A thread that terminates another holds this lock
    /// while it suspends that thread, so that the suspended thread neither owns the lock nor leaves
    /// a list half changed.
    std::unique_lock<std::mutex> HoldMembers() const { return std::unique_lock(members_); }

private:
    /// How far RefreshDiskInventoryIfStale has come.
    enum class Use { none, first, later };

    void RebuildDiskInventory();
    bool ClaimRefresh();

    const platform::QueryPort& queries_;
    const platform::HostFacts& host_;
    const platform::Clock& clock_;
    platform::NamedLock& lock_;

    mutable std::mutex members_;
    DiskList disks_;
    FailurePredictList failurePredictions_;
    std::int32_t matchedDisks_ = 0;
    DiskList previousDisks_;
    Use use_ = Use::none;
    std::int64_t lastRefresh_;  // seconds since 1970
    std::uint32_t refreshTimeout_ = 0;
};

}  // namespace qv
