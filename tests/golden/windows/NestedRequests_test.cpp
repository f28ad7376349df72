// The storage collection queries the management service for the library's own disks: a second
// request enters the library while the first one is running.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <thread>

#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

using testing::AllOf;
using testing::Each;
using testing::Pair;
using testing::SizeIs;

constexpr const char* degraded = R"({3}{"Degraded"})";

/// Two disks; the second one makes the group degraded.
service::RecordedHost TwoDisks() {
    HostBuilder host;
    host.Disk(0, R"(IDE\DISKA\5&0)");
    host.Disk(1, R"(IDE\DISKB\5&1)", {{"Status", "Degraded"}});
    return host.Build();
}

std::string StatusOf(const PublishedInstances& collections) {
    if (collections.instances.size() != 1) {
        return std::to_string(collections.instances.size()) + " collections";
    }
    std::string status;
    for (const PublishedProperty& property : collections.instances[0].properties) {
        if (property.name.starts_with("Group")) {
            status += ValueText(property.value);
        }
    }
    return status;
}

/// As above, for the answer that a client of the namespace gets.
std::string StatusOf(const service::Answer& answer) {
    if (answer.objects.size() != 1) {
        return std::to_string(answer.objects.size()) + " collections, " + answer.message;
    }
    std::string status;
    for (const char* name : {"GroupOperationalStatus", "GroupStatusDescriptions"}) {
        status += ValueText(answer.objects[0]->Find(name)->value);
    }
    return status;
}

/// The collection's status and the number of its members, as often as a client asks.
using Told = std::vector<std::pair<std::string, std::size_t>>;

void AskTenTimes(PublishingHost& host, Told& told) {
    const service::ComApartment apartment;
    for (int request = 0; request < 10; ++request) {
        told.emplace_back(
            StatusOf(host.Published().Query("SELECT * FROM QV_SATAStorageCollection WHERE "
                                            "InstanceID = 'srv01.example.org "
                                            "QV:QV_SATAStorageCollection'")),
            host.Published().Enumerate("QV_SATAStorageCollectionSATADiskDrive").objects.size());
    }
}

std::array<Told, 8> AnswersOnEightThreads(PublishingHost& host) {
    std::array<Told, 8> told;
    std::vector<std::thread> clients;
    for (Told& ofClient : told) {
        clients.emplace_back(AskTenTimes, std::ref(host), std::ref(ofClient));
    }
    std::ranges::for_each(clients, &std::thread::join);
    return told;
}

TEST(NestedRequests, RollUpTheDisksThatTheLibraryItselfPublishes) {
    PublishingHost host(TwoDisks());
    EXPECT_EQ(StatusOf(host.Publish("QV_SATAStorageCollection")), degraded);
}

TEST(NestedRequests, AreAnsweredOnEightThreadsAtOnceAndLeaveTheLibraryFree) {
    PublishingHost host(TwoDisks());
    EXPECT_THAT(AnswersOnEightThreads(host), Each(AllOf(SizeIs(10), Each(Pair(degraded, 2U)))));
    EXPECT_EQ(StatusOf(host.Publish("QV_SATAStorageCollection")), degraded);
    EXPECT_FALSE(host.Host().CanUnloadLibrary());
    host.Host().ReleaseProvider();
    EXPECT_TRUE(host.Host().CanUnloadLibrary());
}

}  // namespace
}  // namespace qv::test
