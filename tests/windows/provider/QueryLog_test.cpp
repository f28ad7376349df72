// The line that a failed query leaves in the legacy log of the provider object that asked last to
// be initialised.
#include <filesystem>

#include "tests/windows/log/ScratchFolder.h"
#include "tests/windows/log/ScratchRegistry.h"
#include "tests/windows/provider/ProviderTest.h"

namespace qv::test {
namespace {

class QueryLogTest : public ProviderTest {
protected:
    /// A provider object made under these settings of the legacy log.
    void MakeProvider(std::uint32_t level) {
        testing::ScratchRegistry settings;
        const wchar_t* path = L"Software\\Corvane\\WBEM\\ServerLOGGING";
        settings.SetText(path, L"LOGFILENAME", folder.File(L"legacy.log"));
        settings.SetNumber(path, L"LEVEL", level);
        ComPtr<IClassFactory> factory;
        library.GetClassObject(instanceProviderId, IID_PPV_ARGS(&factory));
        factory->CreateInstance(nullptr, IID_PPV_ARGS(init.ReleaseAndGetAddressOf()));
        init.As(&provider);
    }

    std::string LegacyLogged() const {
        const std::wstring file = folder.File(L"legacy.log");
        return std::filesystem::exists(file) ? testing::ReadBytesOf(file) : "";
    }

    testing::ScratchFolder folder;
};

TEST_F(QueryLogTest, NamesTheProviderTheNamespaceAndTheQuery) {
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

TEST_F(QueryLogTest, IsSilentBeforeTheObjectIsInitialised) {
    MakeProvider(2);
    EXPECT_EQ(LegacyLogged(), "");
}

TEST_F(QueryLogTest, IsSilentAtTheLogsOwnDefaultLevel) {
    MakeProvider(3);
    source.queries[controllersQuery].submitted = E_FAIL;
    BeReady();
    EXPECT_EQ(Enumerate(L"QV_SATAControllerLocation"), S_OK);
    EXPECT_EQ(LegacyLogged(), "");
}

}  // namespace
}  // namespace qv::test
