// The storage collection asks the management service for the library's own disks, which brings a
// second request into the library while the first one is running.
#include <algorithm>
#include <atomic>
#include <thread>

#include "tests/support/HostBuilder.h"
#include "tests/windows/golden/PublishingHost.h"

namespace qv::test {
namespace {

/// The second of two disks decides: the group is degraded.
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

TEST(NestedRequests, RollUpTheDisksThatTheLibraryItselfPublishes) {
    PublishingHost host(TwoDisks());
    EXPECT_EQ(StatusOf(host.Publish("QV_SATAStorageCollection")), R"({3}{"Degraded"})");
}

TEST(NestedRequests, AreAnsweredOnEightThreadsAtOnceAndLeaveTheLibraryFree) {
    PublishingHost host(TwoDisks());
    std::atomic<int> correct = 0;
    std::vector<std::thread> clients;
    for (int client = 0; client < 8; ++client) {
        clients.emplace_back([&host, &correct] {
            const service::ComApartment apartment;
            for (int request = 0; request < 10; ++request) {
                const auto answer = host.Namespace().Query(
                    "SELECT * FROM QV_SATAStorageCollection WHERE InstanceID = "
                    "'srv01.example.org QV:QV_SATAStorageCollection'");
                const auto members =
                    host.Namespace().Enumerate("QV_SATAStorageCollectionSATADiskDrive");
                const bool complete = answer.objects.size() == 1 && members.objects.size() == 2;
                correct += complete ? 1 : 0;
            }
        });
    }
    std::ranges::for_each(clients, &std::thread::join);
    EXPECT_EQ(correct, 80);
    EXPECT_EQ(StatusOf(host.Publish("QV_SATAStorageCollection")), R"({3}{"Degraded"})");
    EXPECT_FALSE(host.Host().CanUnloadLibrary());
    host.Host().ReleaseProvider();
    EXPECT_TRUE(host.Host().CanUnloadLibrary());
}

}  // namespace
}  // namespace qv::test
