// References to other instances: what stands before them as published and as asked for.
#include "tests/windows/provider/ProviderTest.h"

namespace qv::test {
namespace {

const std::wstring association = L"QV_SATAPortControllerPhysicalPackageSATAControllerLocation";
const std::wstring key = LocationName(L"A");

/// Both ends, with `quote` around their keys.
std::wstring Package(const std::wstring& quote) {
    return L"QV_SATAPortControllerPhysicalPackage.CreationClassName=" + quote +
           L"QV_SATAPortControllerPhysicalPackage" + quote + L",Tag=" + quote + key + quote;
}

std::wstring Location(const std::wstring& quote) {
    return L"QV_SATAControllerLocation.Name=" + quote + key + quote + L",PhysicalPosition=" +
           quote + L"A with Device ID: A" + quote;
}

class References : public ProviderTest {
protected:
    References() { source.Answer(controllersQuery, {ControllerRow(L"A")}); }

    void ExpectReferencesBehind(const std::wstring& prefix) {
        ASSERT_EQ(sink->objects.size(), 1U);
        EXPECT_THAT(sink->Instance(0).puts,
                    ElementsAre(PutCall{L"Element", VT_BSTR, prefix + Package(L"\"")},
                                PutCall{L"PhysicalLocation", VT_BSTR, prefix + Location(L"\"")}));
    }
};

TEST_F(References, ArePublishedBehindServerAndNamespace) {
    source.Answer(definitionQuery, {{{L"__SERVER", L"SRV"}}});
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\SRV\\root\\QVQ:");
}

TEST_F(References, ArePublishedWithoutAServerWhereTheComputerSystemIsNotDefined) {
    BeReady();
    EXPECT_EQ(Enumerate(association), S_OK);
    ExpectReferencesBehind(L"\\\\\\root\\QVQ:");
}

TEST_F(References, AreFoundUnderAnotherServersName) {
    source.Answer(definitionQuery, {{{L"__SERVER", L"SRV"}}});
    BeReady();
    const std::wstring other = LR"(\\\\OTHER\\root\\QVQ:)";
    EXPECT_EQ(Get(association + L".Element=\"" + other + Package(L"\\\"") +
                  L"\",PhysicalLocation=\"" + other + Location(L"\\\"") + L"\""),
              S_OK);
    ExpectReferencesBehind(L"\\\\SRV\\root\\QVQ:");
}

}  // namespace
}  // namespace qv::test
