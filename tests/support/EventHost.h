#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/Clock.h"
#include "platform/NamedLock.h"
#include "source/DiskInventory.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/SourceRows.h"

namespace qv::test {

inline constexpr const char* predictionsQuery =
    "SELECT * FROM MSStorageDriver_FailurePredictStatus";

/// A clock that a test sets.
class ClockStandIn : public platform::Clock {
public:
    std::int64_t SecondsSince1970() const override { return seconds; }
    platform::LocalTime Local() const override { return local; }
    platform::TimeZone Zone() const override { return zone; }

    std::int64_t seconds = 1'700'000'000;
    platform::LocalTime local{2024, 7, 4, 9, 5, 3, 7};
    platform::TimeZone zone;
};

/// A lock that another owner releases after a number of waits; it records whether it is held.
class LockStandIn : public platform::NamedLock {
public:
    bool TryAcquireFor(std::chrono::milliseconds limit) override {
        waits.push_back(limit);
        held = waits.size() > timeouts;
        return held;
    }
    void Release() override {
        held = false;
        ++releases;
    }

    std::size_t timeouts = 0;
    std::vector<std::chrono::milliseconds> waits;
    bool held = false;
    int releases = 0;
};

/// Returns a disk of interface type IDE with this plug-and-play ID.
inline Properties IdeDisk(const std::string& id, const std::string& status = "OK") {
    return {{"InterfaceType", std::string("IDE")},
            {"PNPDeviceID", id},
            {"Status", status},
            {"Caption", std::string("A caption")},
            {"Description", std::string("A text")},
            {"Model", "Model of " + id},
            {"Name", std::string("PHYSICALDRIVE0")}};
}

/// Returns the failure-prediction row of a plug-and-play device.
inline Properties Prediction(const std::string& id) {
    return {{"InstanceName", id + "_0"}, {"PredictFailure", std::string("no")}};
}

/// A scripted host whose disks appear, disappear and change between polls.
class EventHost : public ScriptedHost {
public:
    /// Sets the disks, each with its failure-prediction row.
    void SetDisks(const std::vector<std::pair<std::string, std::string>>& idsAndStatuses) {
        std::vector<Properties> disks;
        std::vector<Properties> predictions;
        for (const auto& [id, status] : idsAndStatuses) {
            disks.push_back(IdeDisk(id, status));
            predictions.push_back(Prediction(id));
        }
        Answer(disksQuery, std::move(disks));
        Answer(predictionsQuery, std::move(predictions));
    }
};

}  // namespace qv::test
