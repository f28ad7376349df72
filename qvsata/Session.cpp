#include "qvsata/Session.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "platform/windows/Text.h"
#include "qvsata/service/ShippedMof.h"
#include "qvsata/service/com/StatusText.h"

namespace qv::tool {
namespace {

using std::filesystem::path;

path FromUtf8(const std::string& text) {
    return windows::ToWide(text, CP_UTF8);
}

path FolderOfThisProgram() {
    std::wstring file(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return path(file).parent_path();
        }
        file.resize(2 * file.size());
    }
}

std::shared_ptr<const service::RecordedHost> ReadHost(const std::string& file) {
    return std::make_shared<service::RecordedHost>(service::RecordedHost::FromFile(FromUtf8(file)));
}

std::vector<std::shared_ptr<const service::RecordedHost>> ReadLaterHosts(
    const Options& options, const service::RecordedHost& first) {
    std::vector<std::shared_ptr<const service::RecordedHost>> hosts;
    for (const std::string& file : options.laterHosts) {
        hosts.push_back(ReadHost(file));
        if (hosts.back()->Computer() != first.Computer()) {
            throw CommandError(file + ": not a recording of the computer of " + options.host);
        }
    }
    return hosts;
}

}  // namespace

std::unique_ptr<service::ManagementHost> StartSession(const Options& options) {
    const path here = FolderOfThisProgram();
    service::HostOptions host;
    if (!options.live) {
        host.recorded = ReadHost(options.host);
        host.laterRecordings = ReadLaterHosts(options, *host.recorded);
    }
    std::ranges::transform(options.installedMof, std::back_inserter(host.mofFiles), FromUtf8);
    const path mofFolder = options.mofFolder.empty() ? here : FromUtf8(options.mofFolder);
    for (const std::string_view file : service::shippedClassFiles) {
        host.mofFiles.push_back(mofFolder / file);
    }
    host.library = options.library.empty() ? here / L"QVWMISATA.dll" : FromUtf8(options.library);
    host.registered = options.registered;
    try {
        return std::make_unique<service::ManagementHost>(host);
    } catch (const RequestError& error) {
        throw CommandError("starting the provider: " +
                           service::StatusText(static_cast<HRESULT>(error.status())));
    }
}

service::ObjectList Take(service::Answer answer) {
    if (FAILED(answer.status)) {
        throw CommandError(answer.message);
    }
    return std::move(answer.objects);
}

}  // namespace qv::tool
