#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/HostFacts.h"
#include "platform/NamedLock.h"
#include "platform/QueryPort.h"

namespace qv {

/// A disk of interface type IDE that has a failure-prediction row, as the events describe it. What
/// the source cannot read as text is empty.
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

/// The one cached view of the host's disks, for the monitor of disk events: the disks as they were
/// found last, and as they were in the monitor's previous cycle. One object serves the whole
/// process; any thread may call any operation at any time.
///
/// The named lock serialises the rebuilding, source queries included, among all users of its name.
/// A short lock of the object's own guards its members; it is never held during a query or while
/// code of somebody else runs.
class DiskInventory {
public:
    /// All of them outlive the object. The clock is read: the inventory is as old as the object.
    DiskInventory(const platform::QueryPort& queries, const platform::HostFacts& host,
                  const platform::Clock& clock, platform::NamedLock& lock);

    /// Finds the disks anew, with their failure-prediction rows in the same order, under the named
    /// lock, for which it waits without limit. When a source query fails all stays as it was.
    /// Always 0: that a source failed is no matter for the caller.
    int RefreshDiskInventoryNow();

    /// Refreshes at the first call, later when the last one that did was more than 30 seconds ago,
    /// but leaves the refreshing to the monitor where `monitorRuns`.
    void RefreshDiskInventoryIfStale(bool monitorRuns);

    /// What the last rebuild found.
    DiskList Disks() const;
    FailurePredictList FailurePredictions() const;
    std::int32_t MatchedDisks() const;

    /// Makes the disks found last those of the previous cycle.
    void KeepDisksAsPrevious();

    /// Gives compare(disks found last, disks of the previous cycle), which may change the latter.
    /// It runs under the object's lock.
    template <typename Comparison>
    auto CompareWithPrevious(Comparison compare) {
        const std::lock_guard guard(members_);
        return compare(std::as_const(disks_), previousDisks_);
    }

    /// The configured refresh time-out, 0 while none is. Nothing here depends on it.
    void SetRefreshTimeout(std::uint32_t timeout);
    std::uint32_t RefreshTimeout() const;

    /// Holds the members as they are while the result lives. Who ends a thread by force holds them
    /// while it stops the thread: that then neither has the object's lock nor leaves a list half
    /// changed.
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
