// References to other instances: their prefix as published and as requested.
#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/CyrillicComputerName.h"

namespace qv::test {
namespace {

const std::wstring association = L"QV_SATAPortControllerPhysicalPackageSATAControllerLocation";
const std::wstring key = LocationName(L"A");

/// Returns a path with both ends, with `quote` around their keys.
std::wstring Package(const std::wstring& quote) {
    return L"QV_SATAPortControllerPhysicalPackage.CreationClassName=" + quote +
           L"QV_SATAPortControllerPhysicalPackage" + quote + L",Tag=" + quote + key + quote;
}

std::wstring Location(const std::wstring& quote) {
    return L"QV_SATAControllerLocation.Name=" + quote + key + quote + L",PhysicalPosition=" +
           quote + L"A with Device ID: A" + quote;
}

class InstanceProviderReferencesTest : public ProviderTest {
protected:
    InstanceProviderReferencesTest() { source.Answer(controllersQuery, {ControllerRow(L"A")}); }

    /// Names the server in letters that the process's code page lacks.
    void NameTheServerInCyrillic() {
        ASSERT_EQ(GetACP(), 1252U);
        source.Answer(definitionQuery, {{{L"__SERVER", L"СЕРВЕР"}}});
    }

    void ExpectReferencesBehind(const std::wstring& prefix) {
        ASSERT_EQ(sink->ObjectCount(), 1U);
        EXPECT_THAT(sink->Instance(0).puts,
                    ElementsAre(PutCall{L"Element", VT_BSTR, prefix + Package(L"\"")},
                                PutCall{L"PhysicalLocation", VT_BSTR, prefix + Location(L"\"")}));
    }
};

TEST_F(InstanceProviderReferencesTest, ArePublishedBehindServerAndNamespace) {
    source.Answer(definitionQuery, {{{L"__SERVER", L"SRV"}}});
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\SRV\\root\\QVQ:");
}

TEST_F(InstanceProviderReferencesTest,
       ArePublishedWithoutAServerWhereTheComputerSystemIsNotDefined) {
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\\\root\\QVQ:");
}

TEST_F(InstanceProviderReferencesTest, AreFoundUnderAnotherServersName) {
    source.Answer(definitionQuery, {{{L"__SERVER", L"SRV"}}});
    BeReady();
    const std::wstring other = LR"(\\\\OTHER\\root\\QVQ:)";
    EXPECT_EQ(Get(association + L".Element=\"" + other + Package(L"\\\"") +
                  L"\",PhysicalLocation=\"" + other + Location(L"\\\"") + L"\""),
              S_OK);
    ExpectReferencesBehind(L"\\\\SRV\\root\\QVQ:");
}

TEST_F(InstanceProviderReferencesTest, KeepAServersNameThatTheCodePageLacks) {
    NameTheServerInCyrillic();
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\СЕРВЕР\\root\\QVQ:");
}

TEST_F(InstanceProviderReferencesTest, KeepSuchAServersNameInAnInstanceThatIsFetchedByItsPath) {
    NameTheServerInCyrillic();
    BeReady();
    const std::wstring here = LR"(\\\\СЕРВЕР\\root\\QVQ:)";
    EXPECT_EQ(Get(association + L".Element=\"" + here + Package(L"\\\"") +
                  L"\",PhysicalLocation=\"" + here + Location(L"\\\"") + L"\""),
              S_OK);
    ExpectReferencesBehind(L"\\\\СЕРВЕР\\root\\QVQ:");
}

TEST_F(InstanceProviderReferencesTest, KeepANamespaceThatTheCodePageLacks) {
    NameTheServerInCyrillic();
    nameSpaceName = L"root\\ДИСКИ";
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\СЕРВЕР\\root\\ДИСКИ:");
}

TEST_F(InstanceProviderReferencesTest, HoldTheNameOfTheHostInTheCodePage) {
    NameTheServerInCyrillic();
    const CyrillicComputerName cyrillic(library.Module());
    source.Answer(disksQuery, {{{L"InterfaceType", L"IDE"}, {L"PNPDeviceID", L"IDE\\X"}}});
    BeReady();
    EXPECT_EQ(Enumerate(L"QV_WinComputerSystemSATADiskDrive"), S_OK);
    ASSERT_EQ(sink->ObjectCount(), 1U);
    EXPECT_EQ(sink->Instance(0).Value(L"GroupComponent"),
              L"\\\\СЕРВЕР\\root\\QVQ:QV_WinComputerSystem."
              L"CreationClassName=\"QV_WinComputerSystem\",Name=\"??????\"");
}

}  // namespace
}  // namespace qv::test
