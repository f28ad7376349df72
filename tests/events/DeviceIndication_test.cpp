#include "events/DeviceIndication.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "source/TypedValue.h"
#include "tests/events/AlertHost.h"

namespace qv::test {
namespace {

using testing::ElementsAre;

DiskRecord SomeDisk() {
    DiskRecord disk;
    disk.systemCreationClassName = "QV_WinComputerSystem";
    disk.creationClassName = "QV_SATADiskDrive";
    disk.systemName = "host.example.org";
    disk.deviceId = "IDE&DISKX&5&1";
    disk.model = "The model";
    return disk;
}

constexpr platform::LocalTime someTime{2024, 7, 4, 9, 5, 3, 7};

TEST(DeviceIndication, HoldsWhatAnEventSaysInItsOrder) {
    const InstanceRecord event = BuildDeviceIndication(SomeDisk(), "605", someTime);
    EXPECT_EQ(event.className, "QV_SATADeviceIndication");
    EXPECT_THAT(
        event.properties,
        ElementsAre(
            PropertyEntry{"EventTime", "20240704090503.007000-000", PropertyType::string, false},
            PropertyEntry{"DeviceID", "IDE&DISKX&5&1", PropertyType::string, false},
            PropertyEntry{"AlertingManagedElement",
                          R"(QV_SATADiskDrive.CreationClassName="QV_SATADiskDrive",)"
                          R"(DeviceID="IDE&DISKX&5&1",)"
                          R"(SystemCreationClassName="QV_WinComputerSystem",)"
                          R"(SystemName="host.example.org")",
                          PropertyType::reference, false},
            PropertyEntry{"AlertingElementFormat", "2", PropertyType::int32, false},
            PropertyEntry{"DeviceModel", "The model", PropertyType::string, false},
            PropertyEntry{"EventID", "605", PropertyType::string, false}));
}

TEST(DeviceIndication, RefersToTheDrive) {
    const InstanceRecord event = BuildDeviceIndication(SomeDisk(), "600", someTime);
    TypedValue value;
    ASSERT_TRUE(ToTypedValue(GetPropertyEntry(event, "AlertingManagedElement"), value));
    EXPECT_THAT(std::get<Reference>(value).path,
                testing::StartsWith("QV_SATADiskDrive.CreationClassName="));
}

TEST(DeviceIndication, SaysTheFormatOfTheReferenceAsANumber) {
    const InstanceRecord event = BuildDeviceIndication(SomeDisk(), "600", someTime);
    TypedValue value;
    ASSERT_TRUE(ToTypedValue(GetPropertyEntry(event, "AlertingElementFormat"), value));
    EXPECT_EQ(std::get<std::int32_t>(value), 2);
}

class DeviceIndicationTest : public test::AlertTest {
protected:
    Status FillFrom(const InstanceRecord& event) {
        return FillDeviceIndication(indication, event, {host, host, system, clock});
    }

    const InstanceRecord someEvent = BuildDeviceIndication(SomeDisk(), "605", someTime);
};

TEST_F(DeviceIndicationTest, SaysWhatEveryAlertSaysAndThenWhatTheEventSays) {
    EXPECT_EQ(FillFrom(someEvent), Status::noError);
    EXPECT_THAT(indication.Names(),
                ElementsAre("ProviderName", "EventID", "IndicationIdentifier", "IndicationTime",
                            "OSVersion", "OSType", "NetworkAddresses", "SystemCreationClassName",
                            "SystemName", "EventTime", "DeviceID", "AlertingManagedElement",
                            "AlertingElementFormat", "DeviceModel"));
    EXPECT_EQ(indication.Value("ProviderName"), "QV SATA");
    EXPECT_EQ(indication.Value("EventID"), "605");
}

TEST_F(DeviceIndicationTest, LacksWhatItRefusesOfTheEvent) {
    indication.refused = "DeviceID";
    EXPECT_EQ(FillFrom(someEvent), Status::noError);
    EXPECT_THAT(indication.Names(), testing::Not(testing::Contains("DeviceID")));
    EXPECT_THAT(indication.Names(), testing::Contains("DeviceModel"));
}

TEST_F(DeviceIndicationTest, EndsAtAPropertyOfEveryAlertThatItRefuses) {
    indication.refused = "OSType";
    EXPECT_EQ(FillFrom(someEvent), indication.refusal);
    EXPECT_EQ(indication.Names().back(), "OSVersion");
}

}  // namespace
}  // namespace qv::test
