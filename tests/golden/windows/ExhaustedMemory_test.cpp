// What a caller of the library gets when memory runs out while a row of its source is read.
#include <gmock/gmock.h>

#include <algorithm>
#include <tuple>

#include "tests/golden/windows/FaultySource.h"
#include "tests/support/HostBuilder.h"
#include "tests/support/windows/CallerStandIn.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::FieldsAre;
using testing::ResultOf;

constexpr Fault firstRows{0, Stage::exhausted};
constexpr Fault secondRows{1, Stage::exhausted};

service::RecordedHost DiskOfAChannel() {
    HostBuilder host;
    host.Controller(R"(PCI\VEN_1&DEV_2&REV_03\4)").Channel(R"(PCIIDE\IDECHANNEL\5&0)");
    host.Disk(0, R"(IDE\DISKA\6&0)").BehindChannel().Media("SA");
    return host.Build();
}

class ExhaustedMemoryTest : public testing::Test {
protected:
    FaultyHost host_{DiskOfAChannel()};
};

TEST_F(ExhaustedMemoryTest, EndsTheRequestsOfAllClassesThatReadRows) {
    std::vector<std::string> readingRows = ExpectedInstanceClassNames();
    std::erase(readingRows, "QV_WinComputerSystem");
    const auto endOf = [this](const std::string& className) {
        const auto answer = host_.Provider(firstRows).Enumerate(className);
        return std::tuple(answer.Status(), answer.completed, answer.objects.size());
    };
    EXPECT_THAT(readingRows, Each(ResultOf(endOf, FieldsAre(E_OUTOFMEMORY, std::nullopt, 0U))));
}

TEST_F(ExhaustedMemoryTest, EndsTheRequestThoughAnInstanceWasBegun) {
    const auto answer = host_.Provider(secondRows).Enumerate("QV_SATADiskDrive");
    EXPECT_EQ(answer.Status(), E_OUTOFMEMORY);
    EXPECT_FALSE(answer.completed);
    EXPECT_TRUE(answer.objects.empty());
    EXPECT_EQ(host_.Asked().size(), 2U);
}

TEST_F(ExhaustedMemoryTest, EndsARequestByPath) {
    const auto answer =
        host_.Provider(firstRows).Get(R"(QV_SATADiskDriveFW.InstanceID="IDE&DISKA&6&0")");
    EXPECT_EQ(answer.Status(), E_OUTOFMEMORY);
    EXPECT_TRUE(answer.objects.empty());
}

TEST_F(ExhaustedMemoryTest, RaisesTheErrorToTheCallerWhoseThreadIsItsOwnAgain) {
    std::optional<Status> raised;
    bool ownThread = false;
    host_.Provider(firstRows).Request([&](IWbemServices& provider, IWbemObjectSink* sink) {
        try {
            provider.CreateInstanceEnumAsync(windows::Bstr(L"QV_SATADiskDrive").Get(), 0, nullptr,
                                             sink);
        } catch (const RequestError& error) {
            raised = error.status();
        }
        ownThread = ThreadIsItsOwn();
        return S_OK;
    });
    EXPECT_EQ(raised, Status::outOfMemory);
    EXPECT_TRUE(ownThread);
}

TEST_F(ExhaustedMemoryTest, LeavesTheLibraryServing) {
    host_.Provider(firstRows).Enumerate("QV_SATADiskDrive");
    EXPECT_EQ(host_.Publish("QV_SATADiskDrive").instances.size(), 1U);
}

}  // namespace
}  // namespace qv::test
