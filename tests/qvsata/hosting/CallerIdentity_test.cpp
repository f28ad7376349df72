#include "qvsata/hosting/CallerIdentity.h"

#include <gtest/gtest.h>

#include <optional>

#include "platform/windows/Handle.h"
#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

/// Returns the level of the thread's token, if it has one.
std::optional<SECURITY_IMPERSONATION_LEVEL> ThreadLevel() {
    windows::KernelHandle token;
    if (!OpenThreadToken(GetCurrentThread(), TOKEN_QUERY, TRUE, token.Receive())) {
        return std::nullopt;
    }
    SECURITY_IMPERSONATION_LEVEL level{};
    DWORD read = 0;
    EXPECT_TRUE(
        GetTokenInformation(token.Get(), TokenImpersonationLevel, &level, sizeof(level), &read));
    return level;
}

class CallerIdentityLevels : public testing::TestWithParam<SECURITY_IMPERSONATION_LEVEL> {};

TEST_P(CallerIdentityLevels, AreSeenByTheProviderThatImpersonates) {
    const TestNamespace names;
    names.provider->SetCallerLevel(GetParam());
    std::optional<SECURITY_IMPERSONATION_LEVEL> before, during, after;
    names.fake->enumerate = [&](IWbemServices&, const BSTR, IWbemObjectSink* sink) {
        before = ThreadLevel();
        EXPECT_EQ(CoImpersonateClient(), S_OK);
        during = ThreadLevel();
        EXPECT_EQ(CoRevertToSelf(), S_OK);
        after = ThreadLevel();
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    };
    names.provider->Enumerate("T_Disk");
    EXPECT_EQ(before, std::nullopt);
    EXPECT_EQ(during, GetParam());
    EXPECT_EQ(after, std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Each, CallerIdentityLevels,
                         testing::Values(SecurityIdentification, SecurityImpersonation),
                         [](const auto& level) {
                             return std::string(level.param == SecurityIdentification
                                                    ? "Identification"
                                                    : "Impersonation");
                         });

TEST(CallerIdentity, RevertsWhatTheCallLeft) {
    {
        const service::ServedCall call(SecurityImpersonation);
        EXPECT_EQ(CoImpersonateClient(), S_OK);
    }
    EXPECT_EQ(ThreadLevel(), std::nullopt);
    EXPECT_EQ(CoImpersonateClient(), RPC_E_CALL_COMPLETE);
}

TEST(CallerIdentity, GivesTheOuterCallItsCallerBack) {
    const service::ServedCall outer(SecurityIdentification);
    { const service::ServedCall inner(SecurityImpersonation); }
    EXPECT_EQ(CoImpersonateClient(), S_OK);
    EXPECT_EQ(ThreadLevel(), SecurityIdentification);
    EXPECT_EQ(CoRevertToSelf(), S_OK);
}

}  // namespace
}  // namespace qv::test
