// The line of a failed query in the legacy log of the provider object whose initialisation was
// requested last.
#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/LogFiles.h"

namespace qv::test {
namespace {

class LentLogTest : public ProviderTest {
protected:
    /// Creates a provider object under these settings of the legacy log.
    void MakeProvider(std::uint32_t level) {
        ScratchRegistry settings;
        SendLogsTo(folder, settings);
        settings.SetNumber(legacyLogKey, L"LEVEL", level);
        library.Make(instanceProviderId).As(&init);
        init.As(&provider);
    }

    std::string LegacyLogged() const { return LegacyLogText(folder); }

    ScratchFolder folder;
};

TEST_F(LentLogTest, NamesTheProviderTheNamespaceAndTheQuery) {
    MakeProvider(2);
    source.queries[controllersQuery].submitted = E_FAIL;
    BeReady();
    EXPECT_EQ(Enumerate(L"QV_SATAControllerLocation"), S_OK);
    EXPECT_THAT(LegacyLogged(),
                ::testing::MatchesRegex(
                    R"( \[../../.... ..:..:..:...\] \[QVWMISATA::CQVWMISATA_InstProv::\] - )"
                    R"(LoggedQueryPort::RunWqlQuery\| failed in root\\CIMv2: )"
                    "SELECT \\* FROM Win32_IDEController\r\n"));
}

TEST_F(LentLogTest, IsSilentBeforeTheObjectIsInitialised) {
    MakeProvider(2);
    EXPECT_EQ(LegacyLogged(), "");
}

TEST_F(LentLogTest, IsSilentAtTheLogsOwnDefaultLevel) {
    MakeProvider(3);
    source.queries[controllersQuery].submitted = E_FAIL;
    BeReady();
    EXPECT_EQ(Enumerate(L"QV_SATAControllerLocation"), S_OK);
    EXPECT_EQ(LegacyLogged(), "");
}

}  // namespace
}  // namespace qv::test
