#include "qvsata/hosting/ManagementHost.h"

#include <gtest/gtest.h>

#include <atomic>
#include <system_error>

#include "platform/windows/WbemStatus.h"
#include "tests/support/windows/RecordedOptions.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

using service::ManagementHost;
using windows::Hr;

service::HostOptions Desktop() {
    return RecordedOptions(ShippedRecording("hosts/ahci-desktop.json"), QV_LIBRARY);
}

TEST(ManagementHost, EnumeratesThroughTheLibrary) {
    const ManagementHost host(Desktop());
    const service::Answer answer = host.Published().Enumerate("QV_SATADiskDrive");
    EXPECT_EQ(answer.status, Status::noError);
    EXPECT_EQ(answer.objects.size(), 3U);
}

TEST(ManagementHost, ShowsTheNextRecordingOnceItIsThePresentOne) {
    service::HostOptions options = Desktop();
    options.laterRecordings = {
        std::make_shared<service::RecordedHost>(options.recorded->Computer())};
    const ManagementHost host(options);
    EXPECT_EQ(host.Published().Enumerate("QV_SATADiskDrive").objects.size(), 3U);
    host.Recordings()->Step();
    EXPECT_EQ(host.Published().Enumerate("QV_SATADiskDrive").objects.size(), 0U);
}

TEST(ManagementHost, LetsTheLibraryGoWithTheProvider) {
    ManagementHost host(Desktop());
    host.Published().Enumerate("QV_SATADiskDrive");
    EXPECT_FALSE(host.CanUnloadLibrary());
    host.ReleaseProvider();
    EXPECT_TRUE(host.CanUnloadLibrary());
}

TEST(ManagementHost, CanBeStartedAgain) {
    const auto collectionsOfANewHost = [] {
        return ManagementHost(Desktop()).Published().Enumerate("QV_SATAStorageCollection");
    };
    EXPECT_EQ(collectionsOfANewHost().objects.size(), 1U);
    EXPECT_EQ(collectionsOfANewHost().objects.size(), 1U);
    EXPECT_EQ(collectionsOfANewHost().objects.size(), 1U);
}

TEST(ManagementHost, AnswersACallerWhoMayOnlyBeIdentifiedWithAccessDenied) {
    const ManagementHost host(Desktop());
    host.Provider().SetCallerLevel(SecurityIdentification);
    EXPECT_EQ(host.Published().Enumerate("QV_SATADiskDrive").status,
              windows::ToStatus(Hr(WBEM_E_ACCESS_DENIED)));
}

TEST(ManagementHost, ServesRequestsThatComeBackToItOnEightThreads) {
    const ManagementHost host(Desktop());
    std::atomic<int> delivered = 0;
    RunOnThreads(8, [&](int) {
        const service::ComApartment apartment;
        Repeat(5, [&] {
            delivered += static_cast<int>(
                host.Published().Enumerate("QV_SATAStorageCollection").objects.size());
        });
    });
    EXPECT_EQ(delivered, 40);
}

TEST(ManagementHost, RaisesASystemErrorForALibraryThatIsNotThere) {
    service::HostOptions options = Desktop();
    options.library = "no-such.dll";
    EXPECT_THROW(ManagementHost{options}, std::system_error);
}

}  // namespace
}  // namespace qv::test
