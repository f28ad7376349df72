#include "qvsata/doctor/Gather.h"

#include <windows.h>

#include <winver.h>

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

LibraryFacts FactsOf(const path& file) {
    std::error_code ignored;
    LibraryFacts facts;
    facts.file = Utf8(file.native());
    facts.folder = Utf8(file.parent_path().native());
    facts.isBesideProgram =
        std::filesystem::equivalent(file.parent_path(), tool::ProgramFolder(), ignored);
    facts.exists = std::filesystem::is_regular_file(file, ignored);
    facts.machine = MachineOf(FirstBytes(file));
    facts.whyNotLoaded = facts.machine ? WhyNotLoaded(file) : "";
    facts.version = VersionOf(file);
    facts.folderRights = RightsOn(file.parent_path().native());
    facts.fileRights = RightsOn(file.native());
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
