#include "log/LogMutex.h"

#include <aclapi.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <utility>
#include <vector>

namespace qv::test {
namespace {

constexpr auto name = L"Global\\QVLogMutexTest";

using AceAndAccount = std::pair<BYTE, WELL_KNOWN_SID_TYPE>;

/// Returns the types of the mutex's access entries, in order, with their accounts.
std::vector<AceAndAccount> AccessEntriesOf(HANDLE mutex) {
    PACL entries = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_EQ(GetSecurityInfo(mutex, SE_KERNEL_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              &entries, nullptr, &descriptor),
              DWORD{ERROR_SUCCESS});
    std::vector<AceAndAccount> found;
    for (DWORD index = 0; entries != nullptr && index < entries->AceCount; ++index) {
        void* entry = nullptr;
        GetAce(entries, index, &entry);
        auto* const allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
        for (const WELL_KNOWN_SID_TYPE account :
             {WinBuiltinGuestsSid, WinLocalSystemSid, WinBuiltinAdministratorsSid,
              WinNetworkServiceSid}) {
            if (IsWellKnownSid(&allowed->SidStart, account)) {
                found.emplace_back(allowed->Header.AceType, account);
            }
        }
    }
    LocalFree(descriptor);
    return found;
}

TEST(LogMutex, IsNamedAfterTheUpperCasedPlaceWithoutBackslashes) {
    EXPECT_EQ(LogMutexName(L"C:\\Windows\\system32\\wbem\\logs\\", L"QvWmiSata"),
              L"Global\\C:WINDOWSSYSTEM32WBEMLOGSQVWMISATA");
}

TEST(LogMutex, IsOneForTheWholeMachine) {
    windows::KernelHandle mutex;
    ASSERT_EQ(CreateLogMutex(name, mutex), 0U);
    const windows::KernelHandle opened(OpenMutexW(SYNCHRONIZE, FALSE, name));
    EXPECT_TRUE(opened);
}

TEST(LogMutex, IsOpenedWhenItExists) {
    windows::KernelHandle first;
    windows::KernelHandle second;
    ASSERT_EQ(CreateLogMutex(name, first), 0U);
    EXPECT_EQ(CreateLogMutex(name, second), 0U);
    EXPECT_TRUE(second);
}

TEST(LogMutex, DeniesGuestsAndAllowsTheServicesAndAdministrators) {
    windows::KernelHandle mutex;
    ASSERT_EQ(CreateLogMutex(name, mutex), 0U);
    const std::vector<AceAndAccount> expected = {
        {ACCESS_DENIED_ACE_TYPE, WinBuiltinGuestsSid},
        {ACCESS_ALLOWED_ACE_TYPE, WinLocalSystemSid},
        {ACCESS_ALLOWED_ACE_TYPE, WinBuiltinAdministratorsSid},
        {ACCESS_ALLOWED_ACE_TYPE, WinNetworkServiceSid}};
    EXPECT_EQ(AccessEntriesOf(mutex.Get()), expected);
}

TEST(LogMutex, TellsWhyItCannotBeCreated) {
    const windows::KernelHandle event(CreateEventW(nullptr, TRUE, FALSE, name));
    windows::KernelHandle mutex;
    EXPECT_EQ(CreateLogMutex(name, mutex), DWORD{ERROR_INVALID_HANDLE});
    EXPECT_FALSE(mutex);
}

}  // namespace
}  // namespace qv::test
