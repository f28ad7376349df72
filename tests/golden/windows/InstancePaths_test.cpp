// An instance by its path, with the class name in another letter case.
#include "tests/golden/windows/PublishingHost.h"
#include "tests/support/HostBuilder.h"

namespace qv::test {
namespace {

TEST(InstancePaths, InOtherLetterCaseFindsTheInstanceAndItsClassIsAsTheDefinitionNamesIt) {
    HostBuilder builder("SRV01");
    builder.Disk(0, R"(IDE\DISKX\5&1)").Disk(1, R"(IDE\DISKY\5&2)");
    PublishingHost host(builder.Build());
    const service::ProviderAnswer answer = host.Host().Provider().Get(
        R"(qv_SATAdiskDRIVE.deviceid="ide&disky&5&2",SYSTEMNAME="Srv01.Example.ORG",)"
        R"(CreationClassName="QV_satadiskdrive",SystemCreationClassName="qv_WINcomputersystem")");
    EXPECT_EQ(answer.Status(), S_OK);
    ASSERT_EQ(answer.objects.size(), 1U);
    const service::Object& disk = *answer.objects[0];
    EXPECT_EQ(service::TextOf(disk, "__CLASS"), "QV_SATADiskDrive");
    EXPECT_EQ(service::TextOf(disk, "DeviceID"), "IDE&DISKY&5&2");
}

}  // namespace
}  // namespace qv::test
