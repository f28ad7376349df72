// GetObjectAsync: one instance by its path.
#include "tests/provider/ProviderTest.h"

namespace qv::test {
namespace {

using Call = PathScript::Call;

class InstanceProviderGetObjectTest : public ProviderTest {
protected:
    InstanceProviderGetObjectTest() {
        source.Answer(controllersQuery, {ControllerRow(L"A"), ControllerRow(L"B")});
        BeReady();
    }

    void ExpectFound(const std::wstring& device) {
        ASSERT_THAT(sink->batches.All(), ElementsAre(1));
        EXPECT_EQ(sink->Instance(0).Value(L"Name"), LocationName(device));
        EXPECT_EQ(sink->statuses.All(), CompletedWith(S_OK));
    }

    const std::wstring pathOfB = LocationPath(LocationName(L"B"), L"B");
};

TEST_F(InstanceProviderGetObjectTest, DeliversTheInstanceOfThePath) {
    EXPECT_EQ(Get(pathOfB), S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, FillsAllProperties) {
    Get(pathOfB);
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_EQ(sink->Instance(0).puts.size(), 8U);
    EXPECT_EQ(sink->Instance(0).Value(L"ElementLocationTagDesc"), L"15");
}

TEST_F(InstanceProviderGetObjectTest, TakesAFullPath) {
    EXPECT_EQ(Get(L"\\\\SRV\\root\\QVQ:" + pathOfB), S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, DisregardsLetterCase) {
    std::wstring path = pathOfB;
    CharLowerW(path.data());
    EXPECT_EQ(Get(path), S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, FetchesTheClassAsSpelledWithTheCallersContext) {
    std::wstring path = pathOfB;
    CharLowerW(path.data());
    Get(path);
    EXPECT_THAT(nameSpace->gets.All(),
                ElementsAre(GetCall{L"qv_satacontrollerlocation", 0, context.Get()}));
}

TEST_F(InstanceProviderGetObjectTest, AsksAParserOfItsOwnForTheRelativePathAndTheClass) {
    Get(pathOfB);
    EXPECT_THAT(parsers.calls.All(), ElementsAre(Call{L"SetText", WBEMPATH_CREATE_ACCEPT_ALL, 0},
                                                 Call{L"GetText", WBEMPATH_GET_RELATIVE_ONLY, 1000},
                                                 Call{L"GetClassName", 0, 1000}));
}

TEST_F(InstanceProviderGetObjectTest, WritesNothingToTheLog) {
    Get(pathOfB);
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsNotFoundForAnInstanceThatThereIsNot) {
    EXPECT_EQ(Get(LocationPath(L"X", L"B")), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsNotFoundForAClassThatOnlyTheNamespaceKnows) {
    EXPECT_EQ(Get(L"CIM_DiskDrive.DeviceID=\"1\""), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, ComparesKeysInTheirOrder) {
    EXPECT_EQ(Get(L"QV_SATAControllerLocation.PhysicalPosition=\"B with Device ID: B\","
                  L"Name=\"" +
                  LocationName(L"B") + L"\""),
              windows::Hr(WBEM_E_NOT_FOUND));
}

TEST_F(InstanceProviderGetObjectTest, RemovesServerAndNamespaceOfAReferenceInAKey) {
    EXPECT_EQ(Get(LocationPath(LR"(\\\\OTHER\\root\\QVQ:)" + LocationName(L"B"), L"B")), S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, RemovesThemFromEveryReference) {
    EXPECT_EQ(
        Get(LocationPath(LR"(\\\\OTHER\\root\\QVQ:)" + LocationName(L"B"), LR"(\\\\.\\root\\x:B)")),
        S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, LeavesDoubledBackslashesAlone) {
    EXPECT_EQ(Get(LocationPath(LR"(\\)" + LocationName(L"B"), L"B")),
              windows::Hr(WBEM_E_NOT_FOUND));
}

TEST_F(InstanceProviderGetObjectTest, TakesTheFirstOfSeveralInstances) {
    source.Answer(controllersQuery, {ControllerRow(L"B"), ControllerRow(L"B")});
    EXPECT_EQ(Get(pathOfB), S_OK);
    ExpectFound(L"B");
}

TEST_F(InstanceProviderGetObjectTest, GivesTheOneHostWhateverNameIsAskedFor) {
    wchar_t name[256];
    DWORD length = 256;
    GetComputerNameExW(ComputerNameDnsFullyQualified, name, &length);
    EXPECT_EQ(Get(LR"(QV_WinComputerSystem.CreationClassName="QV_WinComputerSystem",Name="other")"),
              S_OK);
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_THAT(sink->Instance(0).puts,
                ElementsAre(PutCall{L"CreationClassName", VT_BSTR, L"QV_WinComputerSystem"},
                            PutCall{L"Name", VT_BSTR, std::wstring(name, length)}));
}

TEST_F(InstanceProviderGetObjectTest, NeedsASink) {
    EXPECT_EQ(Get(pathOfB, nullptr), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_THAT(parsers.calls.All(), IsEmpty());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsTheStatusOfAParserThatCannotBeMade) {
    parsers.created = E_OUTOFMEMORY;
    EXPECT_EQ(Get(pathOfB), E_OUTOFMEMORY);
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsTheStatusOfAParserThatRefusesThePath) {
    parsers.setText = windows::Hr(WBEM_E_INVALID_OBJECT_PATH);
    EXPECT_EQ(Get(pathOfB), windows::Hr(WBEM_E_INVALID_OBJECT_PATH));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsTheStatusOfAParserWithoutARelativePath) {
    parsers.getText = windows::Hr(WBEM_E_INVALID_PARAMETER);
    EXPECT_EQ(Get(pathOfB), windows::Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, DoesNotLookAtTheStatusOfTheClassName) {
    parsers.getClassName = windows::Hr(WBEM_E_INVALID_OBJECT_PATH);
    EXPECT_EQ(Get(pathOfB), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_THAT(nameSpace->gets.All(), ElementsAre(GetCall{L"", 0, context.Get()}));
}

TEST_F(InstanceProviderGetObjectTest, TakesPathsOf999Characters) {
    const std::size_t others = LocationPath(L"", L"B").size();
    const std::wstring longest = LocationPath(std::wstring(999 - others, L'n'), L"B");
    ASSERT_EQ(longest.size(), 999U);
    EXPECT_EQ(Get(longest), windows::Hr(WBEM_E_NOT_FOUND));
    EXPECT_EQ(nameSpace->gets.All().size(), 1U);
}

TEST_F(InstanceProviderGetObjectTest, RefusesLongerPaths) {
    const std::size_t others = LocationPath(L"", L"B").size();
    EXPECT_EQ(Get(LocationPath(std::wstring(1000 - others, L'n'), L"B")),
              windows::Hr(WBEM_E_BUFFER_TOO_SMALL));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsTheNamespacesStatusForAMissingClass) {
    nameSpace->getResult = windows::Hr(WBEM_E_INVALID_CLASS);
    EXPECT_EQ(Get(pathOfB), windows::Hr(WBEM_E_INVALID_CLASS));
    EXPECT_TRUE(sink->Untouched());
    EXPECT_THAT(source.asked.All(), IsEmpty());
}

TEST_F(InstanceProviderGetObjectTest, ReturnsTheStatusOfAnInstanceThatCannotBeSpawned) {
    nameSpace->definition->spawnResults = {windows::Hr(WBEM_E_OUT_OF_MEMORY)};
    EXPECT_EQ(Get(pathOfB), windows::Hr(WBEM_E_OUT_OF_MEMORY));
    EXPECT_TRUE(sink->Untouched());
}

TEST_F(InstanceProviderGetObjectTest, CompletesWithWhatTheDeliveryGave) {
    sink->indicateResults = {windows::Hr(WBEM_E_CALL_CANCELLED)};
    EXPECT_EQ(Get(pathOfB), S_OK);
    EXPECT_EQ(sink->statuses.All(), CompletedWith(windows::Hr(WBEM_E_CALL_CANCELLED)));
}

TEST_F(InstanceProviderGetObjectTest, ReturnsWhatTheSinkReturns) {
    sink->statusResult = E_ABORT;
    EXPECT_EQ(Get(pathOfB), E_ABORT);
}

}  // namespace
}  // namespace qv::test
