// CreateInstanceEnumAsync; on the class of controller locations if the class does not matter.
#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/HeldElsewhere.h"

namespace qv::test {
namespace {

constexpr const wchar_t* locations = L"QV_SATAControllerLocation";

class InstanceProviderEnumerationTest : public ProviderTest {
protected:
    InstanceProviderEnumerationTest() {
        source.Answer(controllersQuery,
                      {ControllerRow(L"A"), ControllerRow(L"B"), ControllerRow(L"C")});
        BeReady();
    }

    std::vector<std::wstring> DeliveredNames() const {
        std::vector<std::wstring> names;
        for (std::size_t index = 0; index < sink->ObjectCount(); ++index) {
            names.push_back(sink->Instance(index).Value(L"Name"));
        }
        return names;
    }
};

TEST_F(InstanceProviderEnumerationTest, DeliversEachInstanceByItselfInTheOrderOfTheSource) {
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_THAT(sink->batches.All(), ElementsAre(1, 1, 1));
    EXPECT_THAT(DeliveredNames(),
                ElementsAre(LocationName(L"A"), LocationName(L"B"), LocationName(L"C")));
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, DeliversWhileAnotherHoldsTheInventorysMutex) {
    const HeldElsewhere held(L"DiskDriveListCurrMutex");
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_EQ(sink->ObjectCount(), 3U);
}

TEST_F(InstanceProviderEnumerationTest, FillsAllPropertiesInTheirOrder) {
    source.Answer(controllersQuery, {ControllerRow(L"A")});
    Enumerate(locations);
    const std::wstring position = L"A with Device ID: A";
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_THAT(sink->Instance(0).puts,
                ElementsAre(PutCall{L"Name", VT_BSTR, LocationName(L"A")},
                            PutCall{L"PhysicalPosition", VT_BSTR, position},
                            PutCall{L"ElementName", VT_BSTR, position},
                            PutCall{L"Caption", VT_BSTR, position},
                            PutCall{L"Description", VT_BSTR, position},
                            PutCall{L"ElementLocationTagDesc", VT_I4, L"21"},
                            PutCall{L"ElementLocationTagDesc", VT_I4, L"15"},
                            PutCall{L"ElementLocationTag", VT_BSTR, L"PCI DEVICE ID: A"}));
}

TEST_F(InstanceProviderEnumerationTest, DropsAPropertyThatTheClassLacks) {
    nameSpace->definition->undefined = {L"ElementLocationTag"};
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_EQ(sink->ObjectCount(), 3U);
    EXPECT_EQ(sink->Instance(0).Value(L"ElementLocationTag"), L"(none)");
    EXPECT_EQ(sink->Instance(0).Value(L"Name"), LocationName(L"A"));
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, FetchesTheClassAsSpelledWithTheCallersContext) {
    Enumerate(L"qv_SATACONTROLLERlocation");
    EXPECT_THAT(nameSpace->gets.All(),
                ElementsAre(GetCall{L"qv_SATACONTROLLERlocation", 0, context.Get()}));
    EXPECT_EQ(sink->ObjectCount(), 3U);
}

TEST_F(InstanceProviderEnumerationTest, PublishesTheClassNameAsSpelled) {
    Enumerate(L"qv_sataportcontrollerPHYSICALPACKAGE");
    ASSERT_EQ(sink->ObjectCount(), 3U);
    EXPECT_EQ(sink->Instance(0).Value(L"CreationClassName"),
              L"qv_sataportcontrollerPHYSICALPACKAGE");
}

TEST_F(InstanceProviderEnumerationTest, LogsItsBeginning) {
    Enumerate(locations);
    EXPECT_THAT(Logged(),
                ElementsAre(L"[Information] CQVWMISATA_InstProv::CreateInstanceEnumAsync| "
                            L"Entering CreateInstanceEnumAsync"));
}

TEST_F(InstanceProviderEnumerationTest, CompletesWithNothingWhereNoDeviceMatches) {
    source.Answer(controllersQuery, {{{L"DeviceID", L"PCIIDE\\IDECHANNEL\\1"}}});
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_THAT(sink->batches.All(), IsEmpty());
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, CompletesWithNothingWhereTheSourceFails) {
    source.connected = E_ACCESSDENIED;
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_THAT(sink->batches.All(), IsEmpty());
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, CompletesWithNothingForAClassThatOnlyTheNamespaceKnows) {
    EXPECT_EQ(Enumerate(L"CIM_DiskDrive"), S_OK);
    EXPECT_THAT(sink->batches.All(), IsEmpty());
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, FailsSilentlyForAClassThatTheNamespaceLacks) {
    nameSpace->getResult = windows::Hr(WBEM_E_NOT_FOUND);
    EXPECT_EQ(Enumerate(locations), windows::Hr(WBEM_E_FAILED));
    EXPECT_TRUE(sink->Untouched());
    EXPECT_THAT(source.asked.All(), IsEmpty());
}

TEST_F(InstanceProviderEnumerationTest, WritesNothingOfAMissingClassToTheLog) {
    nameSpace->getResult = windows::Hr(WBEM_E_NOT_FOUND);
    Enumerate(locations);
    EXPECT_EQ(Logged().size(), 1U);
}

TEST_F(InstanceProviderEnumerationTest, NeedsASink) {
    EXPECT_EQ(Enumerate(locations, nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_THAT(nameSpace->gets.All(), IsEmpty());
}

TEST_F(InstanceProviderEnumerationTest, StopsAtAnInstanceThatCannotBeSpawned) {
    nameSpace->definition->spawnResults = {S_OK, windows::Hr(WBEM_E_OUT_OF_MEMORY)};
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_THAT(DeliveredNames(), ElementsAre(LocationName(L"A")));
    EXPECT_EQ(nameSpace->definition->spawns, 2U);
    EXPECT_EQ(sink->statuses.All(), CompletedWith(windows::Hr(WBEM_E_OUT_OF_MEMORY)));
}

TEST_F(InstanceProviderEnumerationTest, GoesOnBehindARefusedInstance) {
    sink->indicateResults = {windows::Hr(WBEM_E_FAILED)};
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_THAT(sink->batches.All(), ElementsAre(1, 1, 1));
    EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
}

TEST_F(InstanceProviderEnumerationTest, CompletesWithWhatTheLastDeliveryGave) {
    sink->indicateResults = {S_OK, S_OK, windows::Hr(WBEM_E_CALL_CANCELLED)};
    EXPECT_EQ(Enumerate(locations), S_OK);
    EXPECT_EQ(sink->statuses.All(), CompletedWith(windows::Hr(WBEM_E_CALL_CANCELLED)));
}

TEST_F(InstanceProviderEnumerationTest, ReturnsWhatTheSinkReturns) {
    sink->statusResult = E_ABORT;
    EXPECT_EQ(Enumerate(locations), E_ABORT);
}

TEST_F(InstanceProviderEnumerationTest, KeepsNothingOfWhatItDelivered) {
    Enumerate(locations);
    EXPECT_EQ(InstanceStandIn::Living(), 3);
    sink = windows::MakeObject<SinkStandIn>();
    EXPECT_EQ(InstanceStandIn::Living(), 0);
}

TEST_F(InstanceProviderEnumerationTest, AsksTheSourceAnewEachTime) {
    Enumerate(locations);
    source.Answer(controllersQuery, {ControllerRow(L"D")});
    sink = windows::MakeObject<SinkStandIn>();
    Enumerate(locations);
    EXPECT_THAT(DeliveredNames(), ElementsAre(LocationName(L"D")));
    EXPECT_EQ(source.connects.All().size(), 2U);
}

TEST_F(InstanceProviderEnumerationTest, LetsAnExceptionOfTheBuilderThrough) {
    source.Answer(disksQuery, {{{L"InterfaceType", L"IDE"}, {L"DeviceID", nullptr}}});
    source.Answer(mediaQuery, {{{L"Tag", L"x"}}});
    EXPECT_THAT([this] { Enumerate(L"QV_SATADiskDrive"); },
                ::testing::Throws<RequestError>(
                    ::testing::Property(&RequestError::status, Status::unspecifiedFailure)));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderEnumerationTest, PublishesNumbersArraysAndTheNamesOfTheHost) {
    source.Answer(disksQuery, {{{L"InterfaceType", L"IDE"},
                                {L"DeviceID", L"\\\\.\\PHYSICALDRIVE0"},
                                {L"PNPDeviceID", L"IDE\\DISK\\1"},
                                {L"Status", L"Degraded"},
                                {L"Capabilities", std::vector<LONG>{3, 10}}}});
    wchar_t name[256];
    DWORD length = 256;
    GetComputerNameExW(ComputerNameDnsFullyQualified, name, &length);
    Enumerate(L"QV_SATADiskDrive");
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_THAT(sink->Instance(0).puts,
                ::testing::IsSupersetOf(
                    {PutCall{L"DeviceID", VT_BSTR, L"IDE&DISK&1"},
                     PutCall{L"SystemName", VT_BSTR, std::wstring(name, length)},
                     PutCall{L"SystemCreationClassName", VT_BSTR, L"QV_WinComputerSystem"},
                     PutCall{L"OperationalStatus", VT_ARRAY | VT_I4, L"|3"},
                     PutCall{L"StatusDescriptions", VT_ARRAY | VT_BSTR, L"|Degraded"},
                     PutCall{L"Capabilities", VT_ARRAY | VT_I4, L"|3|10"},
                     PutCall{L"Index", VT_I4, L"0"}}));
}

TEST_F(InstanceProviderEnumerationTest, PutsNoArrayWithoutElements) {
    source.Answer(disksQuery,
                  {{{L"InterfaceType", L"IDE"}, {L"DeviceID", L"d"}, {L"PNPDeviceID", L"p"}}});
    Enumerate(L"QV_SATADiskDrive");
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_THAT(sink->Instance(0).puts,
                ::testing::Contains(PutCall{L"Capabilities", VT_NULL, L""}));
}

}  // namespace
}  // namespace qv::test
