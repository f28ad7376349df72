#include "tests/provider/LibraryLog.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/support/windows/LogFiles.h"
#include "tests/support/windows/ProviderLibrary.h"

namespace qv::test {
namespace {

std::optional<ScratchFolder> libraryLogFolder;

/// The library reads the settings when it opens its log, at the first line.
class LibraryLogEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        libraryLogFolder.emplace();
        ScratchRegistry settings;
        SendLogsTo(*libraryLogFolder, settings);
        ProviderLibrary::Get().Make(instanceProviderId);
    }
    void TearDown() override { libraryLogFolder.reset(); }
};

[[maybe_unused]] ::testing::Environment* const libraryLogEnvironment =
    ::testing::AddGlobalTestEnvironment(new LibraryLogEnvironment);

}  // namespace

std::size_t LibraryLog::LineCount() {
    return CommonLogLines(*libraryLogFolder).size();
}

std::vector<std::wstring> LibraryLog::LinesFrom(std::size_t from) {
    std::vector<std::wstring> lines = CommonLogLines(*libraryLogFolder);
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(from));
    return lines;
}

std::wstring LibraryLog::MutexName() {
    std::wstring place = libraryLogFolder->File(L"QVWMISATA");
    CharUpperW(place.data());
    std::erase(place, L'\\');
    return L"Global\\" + place;
}

}  // namespace qv::test
