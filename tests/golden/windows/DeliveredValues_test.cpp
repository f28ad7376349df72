// The values that a client reads from the delivered instances.
#include "platform/windows/Variant.h"
#include "qvsata/hosting/objects/ObjectFace.h"
#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

service::RecordedHost DiskOfAController() {
    HostBuilder host;
    host.Controller(R"(PCI\VEN_1&DEV_2&REV_03\4)");
    host.Disk(0, R"(IDE\DISKA\6&0)").BehindController();
    return host.Build();
}

class DeliveredValuesTest : public testing::Test {
protected:
    /// Reads a property of the one instance of a class.
    void Read(std::string_view className, const wchar_t* property) {
        const auto answer = host_.Host().Provider().Enumerate(className);
        ASSERT_EQ(answer.objects.size(), 1U);
        ASSERT_EQ(
            service::FaceOf(answer.objects[0])->Get(property, 0, read_.Receive(), nullptr, nullptr),
            S_OK);
    }

    windows::Variant read_;
    PublishingHost host_{DiskOfAController()};
};

TEST_F(DeliveredValuesTest, OfALocationTagDescThatIsPutTwiceAreTheLater) {
    Read("QV_SATAControllerLocation", L"ElementLocationTagDesc");
    EXPECT_EQ(V_VT(&read_.Get()), VT_I4);
    EXPECT_EQ(V_I4(&read_.Get()), 15);
}

TEST_F(DeliveredValuesTest, OfADisksLocationTagDescAre21) {
    Read("QV_SATADiskLocation", L"ElementLocationTagDesc");
    EXPECT_EQ(V_VT(&read_.Get()), VT_I4);
    EXPECT_EQ(V_I4(&read_.Get()), 21);
}

}  // namespace
}  // namespace qv::test
