#include "qvsata/service/com/ManagementHost.h"

#include <algorithm>
#include <system_error>

#include "platform/windows/Text.h"
#include "qvsata/service/MofReader.h"
#include "qvsata/service/com/EmbeddedServices.h"
#include "qvsata/service/com/Locator.h"
#include "qvsata/service/com/PathParser.h"

namespace qv::service {
namespace {

constexpr std::string_view providerNamespace = R"(root\QVQ)";

// {3F6A2C1E-5B7D-4E90-A1C3-7D2E9F4B8A06}, as the MOF of the provider names it
constexpr CLSID instanceProviderId{
    0x3F6A2C1E, 0x5B7D, 0x4E90, {0xA1, 0xC3, 0x7D, 0x2E, 0x9F, 0x4B, 0x8A, 0x06}};

[[noreturn]] void EndWith(HRESULT status) {
    throw RequestError(static_cast<Status>(status));
}

std::string ThisComputer() {
    std::wstring name(MAX_COMPUTERNAME_LENGTH + 1, L'\0');
    auto length = static_cast<DWORD>(name.size());
    if (!GetComputerNameW(name.data(), &length)) {
        EndWith(HRESULT_FROM_WIN32(GetLastError()));
    }
    name.resize(length);
    return windows::ToNarrow(name, CP_UTF8);
}

ClassRepository ReadClasses(const std::vector<std::filesystem::path>& mofFiles) {
    std::vector<std::string> files;
    std::ranges::transform(mofFiles, std::back_inserter(files),
                           [](const auto& file) { return file.string(); });
    Namespaces namespaces;
    ReadMofFiles(files, namespaces);
    return namespaces.Of(providerNamespace);
}

std::shared_ptr<RecordingSequence> SequenceOf(const HostOptions& options) {
    if (!options.recorded) {
        return nullptr;
    }
    std::vector recordings{options.recorded};
    std::ranges::copy(options.laterRecordings, std::back_inserter(recordings));
    return std::make_shared<RecordingSequence>(std::move(recordings));
}

windows::ComPtr<IUnknown> CreateRegistered(REFCLSID classId) {
    windows::ComPtr<IUnknown> object;
    const HRESULT result =
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    if (FAILED(result)) {
        EndWith(result);
    }
    return object;
}

/// The module that an object's code is in.
HMODULE ModuleOf(IUnknown& object) {
    HMODULE module = nullptr;
    const void* const* functions = *reinterpret_cast<void***>(&object);
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            static_cast<LPCWSTR>(functions[0]), &module)) {
        EndWith(HRESULT_FROM_WIN32(GetLastError()));
    }
    return module;
}

}  // namespace

ManagementHost::ManagementHost(const HostOptions& options)
    : namespace_(std::make_shared<EmbeddedNamespace>(
          ReadClasses(options.mofFiles), std::string(providerNamespace),
          options.recorded ? options.recorded->Computer().server : ThisComputer())),
      recordings_(SequenceOf(options)) {
    const Connector machine = recordings_ ? ConnectRecorded(recordings_) : ConnectLive();
    locator_.emplace(
        CLSID_WbemAdministrativeLocator, [own = namespace_, machine](REFIID iid, void** object) {
            return windows::MakeObject<Locator>(own, machine)->QueryInterface(iid, object);
        });
    pathParser_.emplace(windows::pathParserClassId, [](REFIID iid, void** object) {
        return windows::MakeObject<PathParser>()->QueryInterface(iid, object);
    });
    if (!options.registered) {
        library_.emplace(options.library);
    }
    const windows::ComPtr<IUnknown> object = Create(instanceProviderId);
    module_ = ModuleOf(*object.Get());
    if (options.recorded) {
        names_.emplace(module_, options.recorded->Computer());
    }
    provider_ = std::make_shared<ProviderObject>(object, windows::ToWide(providerNamespace),
                                                 *Connect().Get());
    namespace_->Attach(provider_);
}

ManagementHost::~ManagementHost() {
    ReleaseProvider();
}

void ManagementHost::ReleaseProvider() {
    namespace_->Attach(nullptr);
    provider_.reset();
}

windows::ComPtr<IUnknown> ManagementHost::Create(REFCLSID classId) const {
    return library_ ? library_->Create(classId) : CreateRegistered(classId);
}

windows::ComPtr<IWbemServices> ManagementHost::Connect() const {
    return windows::MakeObject<EmbeddedServices>(namespace_);
}

bool ManagementHost::CanUnloadLibrary() const {
    return !library_ || library_->CanUnload();
}

}  // namespace qv::service
