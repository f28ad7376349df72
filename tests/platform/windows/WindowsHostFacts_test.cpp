#include "platform/windows/WindowsHostFacts.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/support/windows/CyrillicComputerName.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

using platform::ComputerName;
using platform::NameFormat;
using windows::WindowsHostFacts;

const WindowsHostFacts facts;

/// Returns the system's own name.
std::wstring SystemName(COMPUTER_NAME_FORMAT format) {
    wchar_t name[256] = L"";
    DWORD length = 256;
    GetComputerNameExW(format, name, &length);
    return name;
}

TEST(WindowsHostFacts, GivesTheNameInEachFormat) {
    EXPECT_EQ(facts.NameInFormat(NameFormat::dnsFullyQualified).name,
              SystemName(ComputerNameDnsFullyQualified));
    EXPECT_EQ(facts.NameInFormat(NameFormat::dnsHostname).name,
              SystemName(ComputerNameDnsHostname));
    EXPECT_EQ(facts.NameInFormat(NameFormat::netBios).name, SystemName(ComputerNameNetBIOS));
    EXPECT_EQ(facts.NameInFormat(NameFormat::netBios).error, 0U);
}

using NameReader = BOOL WINAPI(COMPUTER_NAME_FORMAT, LPWSTR, LPDWORD);

const std::wstring longName(300, L'n');
int attempts = 0;

BOOL WINAPI GiveLongName(COMPUTER_NAME_FORMAT, LPWSTR buffer, LPDWORD length) {
    ++attempts;
    if (*length <= longName.size()) {
        *length = static_cast<DWORD>(longName.size());
        SetLastError(ERROR_MORE_DATA);
        return FALSE;
    }
    longName.copy(buffer, longName.size());
    *length = static_cast<DWORD>(longName.size());
    return TRUE;
}

TEST(WindowsHostFacts, AsksOnceMoreForALongName) {
    const ReplacedImport<NameReader> reader(GetModuleHandleW(nullptr), "GetComputerNameExW",
                                            &GiveLongName);
    attempts = 0;
    const ComputerName name = facts.NameInFormat(NameFormat::dnsHostname);
    EXPECT_EQ(name.name, longName);
    EXPECT_EQ(name.error, 0U);
    EXPECT_EQ(attempts, 2);
}

TEST(WindowsHostFacts, GivesANameThatTheCodePageLacks) {
    ASSERT_EQ(GetACP(), 1252U);
    const CyrillicComputerName cyrillic(GetModuleHandleW(nullptr));
    EXPECT_EQ(facts.NameInFormat(NameFormat::dnsHostname).name, L"сервер");
}

TEST(WindowsHostFacts, NarrowsTextToTheCodePage) {
    ASSERT_EQ(GetACP(), 1252U);
    EXPECT_EQ(facts.ToNarrow(L"büro сервер"), "b\xFCro ??????");
}

BOOL WINAPI AlwaysWantMore(COMPUTER_NAME_FORMAT, LPWSTR, LPDWORD length) {
    ++attempts;
    *length *= 2;
    SetLastError(ERROR_MORE_DATA);
    return FALSE;
}

TEST(WindowsHostFacts, AsksNoThirdTime) {
    const ReplacedImport<NameReader> reader(GetModuleHandleW(nullptr), "GetComputerNameExW",
                                            &AlwaysWantMore);
    attempts = 0;
    EXPECT_EQ(facts.NameInFormat(NameFormat::dnsHostname).error, DWORD{ERROR_MORE_DATA});
    EXPECT_EQ(attempts, 2);
}

BOOL WINAPI Deny(COMPUTER_NAME_FORMAT, LPWSTR, LPDWORD) {
    ++attempts;
    SetLastError(ERROR_ACCESS_DENIED);
    return FALSE;
}

TEST(WindowsHostFacts, GivesTheSystemErrorOfANameThatIsRefused) {
    const ReplacedImport<NameReader> reader(GetModuleHandleW(nullptr), "GetComputerNameExW", &Deny);
    attempts = 0;
    EXPECT_EQ(facts.NameInFormat(NameFormat::dnsHostname).error, DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(attempts, 1);
}

}  // namespace
}  // namespace qv::test
