#include "qvsata/doctor/Gather.h"

#include <windows.h>

#include <msi.h>
#include <winver.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/windows/Text.h"
#include "provider/public/ClassIds.h"
#include "qvsata/doctor/PeFile.h"
#include "qvsata/doctor/windows/Logs.h"
#include "qvsata/doctor/windows/Rights.h"
#include "qvsata/hosting/ComApartment.h"
#include "qvsata/hosting/LiveMachine.h"
#include "qvsata/hosting/ProviderLibrary.h"
#include "qvsata/registration/windows/RegisteredClass.h"
#include "qvsata/system/Process.h"

namespace qv::doctor {
namespace {

using std::filesystem::path;

std::string Utf8(std::wstring_view text) {
    return windows::ToNarrow(text, CP_UTF8);
}

std::optional<std::string> Utf8OrNone(const std::optional<std::wstring>& text) {
    return text ? std::optional(Utf8(*text)) : std::nullopt;
}

ClassFacts FactsOf(const char* name, const wchar_t* classId) {
    const tool::RegisteredClass registered = tool::ReadRegisteredClass(classId);
    return {name, Utf8(classId), Utf8OrNone(registered.library),
            Utf8OrNone(registered.threadingModel)};
}

std::string FirstBytes(const path& file) {
    std::string bytes(0x1000, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

std::string WhyNotLoaded(const path& file) {
    try {
        const service::ProviderLibrary library(file);
        return {};
    } catch (const std::system_error& error) {
        return error.what();
    }
}

/// Returns the first three numbers of the file's version, "1.0.0"; empty if it has none.
std::string VersionOf(const path& file) {
    DWORD ignored = 0;
    std::string resource(GetFileVersionInfoSizeW(file.c_str(), &ignored), '\0');
    void* value = nullptr;
    UINT size = 0;
    if (!GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()),
                             resource.data()) ||
        !VerQueryValueW(resource.data(), L"\\", &value, &size)) {
        return {};
    }
    const auto* const fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    return std::to_string(HIWORD(fixed->dwFileVersionMS)) + '.' +
           std::to_string(LOWORD(fixed->dwFileVersionMS)) + '.' +
           std::to_string(HIWORD(fixed->dwFileVersionLS));
}

/// Returns the product code of the installed MSI; empty without one.
std::string InstalledProduct() {
    // Its upgrade code, as packaging/installer has it, which all versions share.
    constexpr const wchar_t* upgradeCode = L"{6B0F4C5E-93D1-4C58-A2E7-1D84F0C7B36A}";
    std::array<wchar_t, 39> product{};
    const UINT result = MsiEnumRelatedProductsW(upgradeCode, 0, 0, product.data());
    return result == ERROR_SUCCESS ? Utf8(product.data()) : "";
}

GuardedPlace Guarded(const path& place) {
    return {Utf8(place.native()), RightsOn(place.native())};
}

/// Returns the programs and class definitions in the library's folder, which administrators and the
/// service run or compile.
std::vector<path> FilesBeside(const path& library) {
    std::error_code ignored;
    std::vector<path> files;
    for (const auto& entry : std::filesystem::directory_iterator(library.parent_path(), ignored)) {
        const path extension = entry.path().extension();
        if (entry.path().filename() != library.filename() &&
            (extension == L".exe" || extension == L".mof")) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

LibraryFacts FactsOf(const path& file) {
    std::error_code ignored;
    LibraryFacts facts;
    facts.file = Utf8(file.native());
    facts.isBesideProgram =
        std::filesystem::equivalent(file.parent_path(), tool::ProgramFolder(), ignored);
    facts.exists = std::filesystem::is_regular_file(file, ignored);
    facts.machine = MachineOf(FirstBytes(file));
    facts.whyNotLoaded = facts.machine ? WhyNotLoaded(file) : "";
    facts.version = VersionOf(file);
    facts.product = InstalledProduct();
    const path folder = file.parent_path();
    facts.folder = Guarded(folder);
    facts.files = {Guarded(file)};
    for (const path& other : FilesBeside(file)) {
        facts.files.push_back(Guarded(other));
    }
    for (path above = folder; above.has_relative_path();) {
        above = above.parent_path();
        facts.parents.push_back(Guarded(above));
    }
    return facts;
}

}  // namespace

std::optional<Facts> ReadMachine() {
    Facts facts;
    facts.classes = {FactsOf("instance provider", provider::instanceProviderText),
                     FactsOf("event provider", provider::eventProviderText)};
    const auto& library = tool::ReadRegisteredClass(provider::instanceProviderText).library;
    if (library) {
        facts.library = FactsOf(path(*library));
    }
    ReadLogs(facts);
    return facts;
}

service::Connection ConnectInstalled(std::string_view nameSpace) {
    // For the rest of the process: the connection needs it as long as it lives.
    static const service::ComApartment apartment;
    return service::ConnectLive(std::nullopt)(nameSpace);
}

}  // namespace qv::doctor
