#include "qvsata/hosting/substitutes/ComputerNamePatch.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

/// Returns the computer name that this program, whose imports the tests patch, receives.
std::wstring NameIn(COMPUTER_NAME_FORMAT format, DWORD size = 100) {
    std::wstring name(100, L'\0');
    if (!GetComputerNameExW(format, name.data(), &size)) {
        return L"error " + std::to_wstring(GetLastError()) + L" size " + std::to_wstring(size);
    }
    name.resize(size);
    return name;
}

TEST(ComputerNamePatch, ShowsTheModuleTheRecordedNames) {
    service::ComputerNames names;
    names.dnsFullyQualified = "b\xC3\xBCro.example.org";
    names.netbios = "BURO";
    const service::ComputerNamePatch recorded(GetModuleHandleW(nullptr), names);
    EXPECT_EQ(NameIn(ComputerNameDnsFullyQualified), L"b\u00fcro.example.org");
    EXPECT_EQ(NameIn(ComputerNameNetBIOS), L"BURO");
    EXPECT_EQ(NameIn(ComputerNamePhysicalNetBIOS), L"BURO");
    EXPECT_EQ(NameIn(ComputerNameDnsHostname), L"error 1210 size 100");
    EXPECT_EQ(NameIn(ComputerNameNetBIOS, 4), L"error 234 size 5");
}

TEST(ComputerNamePatch, IsUndoneAtItsEnd) {
    const std::wstring own = NameIn(ComputerNameNetBIOS);
    service::ComputerNames names;
    names.netbios = "ANOTHER-ONE";
    {
        const service::ComputerNamePatch recorded(GetModuleHandleW(nullptr), names);
        EXPECT_EQ(NameIn(ComputerNameNetBIOS), L"ANOTHER-ONE");
    }
    EXPECT_EQ(NameIn(ComputerNameNetBIOS), own);
}

}  // namespace
}  // namespace qv::test
