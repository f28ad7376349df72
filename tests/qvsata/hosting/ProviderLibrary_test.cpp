#include "qvsata/hosting/ProviderLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

#include "tests/support/windows/ScratchFolder.h"

namespace qv::test {
namespace {

namespace fs = std::filesystem;

/// Returns the error of loading a file; empty if it can be loaded.
std::string ErrorOf(const fs::path& file) {
    try {
        const service::ProviderLibrary library(file);
        return "";
    } catch (const std::system_error& error) {
        return error.what();
    }
}

/// Makes a folder the current one while it lives.
class CurrentFolder {
public:
    explicit CurrentFolder(const fs::path& folder) { fs::current_path(folder); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { fs::current_path(before_); }

private:
    fs::path before_ = fs::current_path();
};

fs::path FileOf(HMODULE module) {
    std::wstring name(1024, L'\0');
    name.resize(GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size())));
    return name;
}

TEST(ProviderLibrary, OfARelativeNameIsTheOneInTheCurrentFolder) {
    const fs::path built = fs::absolute(QV_LIBRARY);
    const ScratchFolder folder;
    const fs::path here = folder.File(L"QVWMISATA.dll");
    fs::copy_file(built, here);
    // A library of that name that the process has loaded already, from another folder.
    const service::ProviderLibrary other(built);
    const CurrentFolder current(folder.Path());
    const service::ProviderLibrary library("QVWMISATA.dll");
    EXPECT_NE(library.Module(), other.Module());
    EXPECT_TRUE(fs::equivalent(FileOf(library.Module()), here));
}

TEST(ProviderLibrary, ThatIsMissingIsNamedWithNumberAndText) {
    EXPECT_THAT(ErrorOf("no-such.dll"),
                testing::MatchesRegex("no-such.dll: error 126: .*odule not found.*"));
}

TEST(ProviderLibrary, WithoutTheExportsOfAServerIsRefusedAsSuch) {
    EXPECT_THAT(ErrorOf("C:\\windows\\system32\\kernel32.dll"),
                testing::HasSubstr("kernel32.dll: error 127: "));
}

}  // namespace
}  // namespace qv::test
