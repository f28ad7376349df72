// Where the library's logs are written: the settings of the machine lead to a folder of the test.
#include "qvsata/hosting/substitutes/LogPatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "platform/windows/Handle.h"
#include "qvsata/hosting/ManagementHost.h"
#include "qvsata/hosting/ProviderLibrary.h"
#include "qvsata/hosting/substitutes/ImportPatch.h"
#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/RecordedOptions.h"
#include "tests/support/windows/ScratchFolder.h"
#include "tests/support/windows/ScratchRegistry.h"

namespace qv::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

class LogPatchTest : public testing::Test {
protected:
    LogPatchTest() { SendLogsTo(folderOfTheMachine, settings); }

    /// Runs a provider on a recording, with a subscription.
    void Run(const std::wstring& logFolder) {
        service::HostOptions options =
            RecordedOptions(ShippedRecording("hosts/mixed-buses-failing.json"), QV_LIBRARY);
        options.logFolder = logFolder;
        const service::ManagementHost host(options);
        host.Published().Enumerate("QV_SATADiskDrive");
        host.Subscribe();
    }

    ScratchRegistry settings;
    ScratchFolder folderOfTheMachine;
    ScratchFolder folder;
};

TEST_F(LogPatchTest, WritesNowhereUnlessAFolderIsGiven) {
    Run(L"");
    EXPECT_EQ(folderOfTheMachine.FileCount(), 0U);
}

/// What the library takes for the Windows folder: the system passes nothing that leads to an
/// object.
std::wstring windowsFolder;

UINT WINAPI GetWindowsFolder(LPWSTR text, UINT size) {
    return static_cast<UINT>(windowsFolder.copy(text, size));
}

TEST_F(LogPatchTest, WritesNothingInTheDefaultFolderEither) {
    windowsFolder = folder.File(L"Windows");
    const std::filesystem::path defaultFolder = windowsFolder + L"\\system32\\wbem\\logs";
    std::filesystem::create_directories(defaultFolder);
    const service::ProviderLibrary library(QV_LIBRARY);
    const service::ImportPatch patch(
        library.Module(), "GetSystemWindowsDirectoryW",
        reinterpret_cast<service::ImportPatch::Function>(&GetWindowsFolder));
    Run(L"");
    EXPECT_TRUE(std::filesystem::is_empty(defaultFolder));
}

TEST_F(LogPatchTest, WritesBothLogsInTheFolder) {
    Run(folder.Path());
    EXPECT_THAT(CommonLogLines(folder), Contains(StartsWith(L"[Information] CQVWMISATA_InstProv")));
    EXPECT_THAT(ReadBytesOf(folder.File(L"qvwbems.log")), HasSubstr("CQVWMISATA_EventProv"));
    EXPECT_EQ(folder.FileCount(), 2U);
    EXPECT_EQ(folderOfTheMachine.FileCount(), 0U);
}

TEST_F(LogPatchTest, AppendsToTheLogsOfAnEarlierRun) {
    Run(folder.Path());
    const std::size_t lines = CommonLogLines(folder).size();
    Run(folder.Path());
    EXPECT_EQ(CommonLogLines(folder).size(), 2 * lines);
}

TEST_F(LogPatchTest, RefusesAFolderThatIsNotThere) {
    const std::wstring none = folder.File(L"none");
    EXPECT_THAT([&] { Run(none); }, testing::ThrowsMessage<std::system_error>(
                                        HasSubstr("none\\QVWMISATA.log: error 3")));
    EXPECT_EQ(folderOfTheMachine.FileCount(), 0U);
}

TEST_F(LogPatchTest, RefusesALibraryWhoseLogsItCannotRedirect) {
    service::HostOptions options =
        RecordedOptions(ShippedRecording("hosts/mixed-buses-failing.json"), QV_SILENT_SERVER);
    options.logFolder = L"";
    EXPECT_THAT([&] { const service::ManagementHost host(options); },
                testing::ThrowsMessage<std::runtime_error>(
                    HasSubstr("silent_server.dll: does not import RegOpenKeyExW by name")));
}

/// Returns whether this program, whose imports the test patches, can make a file.
bool CanMake(const std::wstring& file) {
    const windows::FileHandle made(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                               FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(made);
}

TEST_F(LogPatchTest, IsUndoneAtItsEnd) {
    {
        const service::LogPatch patched(GetModuleHandleW(nullptr), {});
        EXPECT_FALSE(CanMake(folder.File(L"a.log")));
    }
    EXPECT_TRUE(CanMake(folder.File(L"a.log")));
}

}  // namespace
}  // namespace qv::test
