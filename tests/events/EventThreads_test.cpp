// Several threads at once on one inventory, for the thread sanitizer.
#include <atomic>
#include <mutex>
#include <thread>

#include "events/CSATAHBA_EVENTS.h"
#include "tests/support/EventHost.h"
#include "tests/support/SilentLog.h"

namespace qv::test {
namespace {

/// A lock without a timed wait, which this sanitizer does not support.
class MutexLock : public platform::NamedLock {
public:
    bool TryAcquireFor(std::chrono::milliseconds limit) override {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!mutex_.try_lock()) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            std::this_thread::yield();
        }
        return true;
    }
    void Release() override { mutex_.unlock(); }

private:
    std::mutex mutex_;
};

/// A host of fifty disks. At each poll the status of half of them changes, and a few appear or
/// disappear.
class RestlessHost : public platform::QueryPort, public platform::HostFacts {
public:
    Status RunWqlQuery(std::string_view nameSpace, std::string_view,
                       platform::Rows& rows) const override {
        const int look = ++looks_;
        rows.clear();
        for (int disk = look % 3; disk < 50; ++disk) {
            const std::string id = R"(IDE\DISK)" + std::to_string(disk + 100);
            rows.push_back(std::make_shared<ScriptedRow>(
                nameSpace == R"(root\wmi)" ? Prediction(id)
                                           : IdeDisk(id, (disk + look) % 4 == 0 ? "Error" : "OK")));
        }
        return Status::noError;
    }

    platform::ComputerName NameInFormat(platform::NameFormat) const override {
        return {0, L"host"};
    }
    std::string ToNarrow(std::wstring_view) const override { return "host"; }

private:
    mutable std::atomic<int> looks_ = 0;
};

class EventCounter : public EventReceiver {
public:
    void Receive(const InstanceRecord& event) override {
        const std::string id = GetPropertyEntry(event, "EventID").value;
        const std::string device = GetPropertyEntry(event, "DeviceID").value;
        (id.size() == 3 && device.starts_with("IDE&DISK1") ? whole : torn)++;
    }

    std::atomic<int> whole = 0;
    std::atomic<int> torn = 0;
};

class EventThreadsTest : public testing::Test {
protected:
    RestlessHost host;
    ClockStandIn clock;
    SilentLog log{LogLevel::debug};
    MutexLock lock;
    DiskInventory inventory{host, host, clock, lock};
    CSATAHBA_EVENTS monitor{inventory, clock, log};
    EventCounter receiver;
};

TEST_F(EventThreadsTest, ShareTheListsWithoutTearingThem) {
    monitor.RegisterReceiver(receiver);
    {
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 3; ++thread) {
            threads.emplace_back([this] {
                for (int cycle = 0; cycle < 60; ++cycle) {
                    monitor.RunCycle();
                }
            });
        }
    }
    EXPECT_GT(receiver.whole, 0);
    EXPECT_EQ(receiver.torn, 0);
}

TEST_F(EventThreadsTest, RunBesideSubscriptionsAndReaders) {
    std::atomic<bool> stop = false;
    std::jthread cycles([this, &stop] {
        while (!stop) {
            monitor.RunCycle();
        }
    });
    for (int turn = 0; turn < 60; ++turn) {
        monitor.RegisterReceiver(receiver);
        inventory.RefreshDiskInventoryIfStale(monitor.Running() && turn % 2 == 0);
        inventory.SetRefreshTimeout(static_cast<std::uint32_t>(turn));
        EXPECT_LE(inventory.Disks().size(), 50U);
        EXPECT_LE(inventory.MatchedDisks(), 50);
        inventory.FailurePredictions();
        const auto held = inventory.HoldMembers();
    }
    stop = true;
}

}  // namespace
}  // namespace qv::test
