#pragma once

#include <windows.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/windows/Text.h"
#include "tests/qvsata/commands/windows/RunTool.h"
#include "tests/support/windows/ScratchFolder.h"

namespace qv::test {

inline const std::wstring instanceClass =
    L"SOFTWARE\\Classes\\CLSID\\{3F6A2C1E-5B7D-4E90-A1C3-7D2E9F4B8A06}";
inline const std::wstring eventClass =
    L"SOFTWARE\\Classes\\CLSID\\{9C4E7B21-0D3A-4F6B-8E15-2A9C6D3F7B40}";

/// Returns a file as the tool prints it.
inline std::string Shown(const std::filesystem::path& file) {
    return windows::ToNarrow(std::filesystem::absolute(file).make_preferred().native(), CP_UTF8);
}

/// A machine with a stand-in for the MOF compiler. Nothing is registered before and after each
/// test.
class RegisteredTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        std::filesystem::copy_file(QV_COMPILER, R"(C:\windows\system32\wbem\mofcomp.exe)",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    void SetUp() override {
        SetEnvironmentVariableW(L"QV_COMPILED", compiled_.c_str());
        Refuse(nullptr);
        RunTool({"unregister"});
        Compiled();
    }
    void TearDown() override {
        Refuse(nullptr);
        RunTool({"unregister"});
    }

    /// Makes the compiler refuse a file from now on.
    static void Refuse(const wchar_t* file) { SetEnvironmentVariableW(L"QV_REFUSED", file); }

    /// Returns the names of the files that were compiled since the last call, a line each.
    std::string Compiled() {
        std::ifstream stream(compiled_, std::ios::binary);
        std::string names(std::istreambuf_iterator<char>(stream), {});
        stream.close();
        std::filesystem::remove(compiled_);
        return names;
    }

    /// Returns the file with which a class is registered.
    static std::string LibraryOf(const std::wstring& classKey) {
        std::wstring text(MAX_PATH, L'\0');
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(HKEY_LOCAL_MACHINE, (classKey + L"\\InprocServer32").c_str(), nullptr,
                         RRF_RT_REG_SZ, nullptr, text.data(), &size);
        return status == ERROR_SUCCESS ? windows::ToNarrow(text.c_str(), CP_UTF8) : "none";
    }

    ScratchFolder folder_;
    const std::filesystem::path compiled_{folder_.File(L"compiled.txt")};
    const std::string library_ = Shown(QV_LIBRARY);
    const std::filesystem::path products_ = std::filesystem::path(QV_LIBRARY).parent_path();
};

}  // namespace qv::test
