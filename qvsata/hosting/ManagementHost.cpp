#include "qvsata/hosting/ManagementHost.h"

#include <system_error>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "provider/public/ClassIds.h"
#include "qvsata/hosting/HostedEvents.h"
#include "qvsata/hosting/LiveComputer.h"
#include "qvsata/hosting/LiveMachine.h"
#include "qvsata/hosting/ProviderSource.h"
#include "qvsata/hosting/ServicesFace.h"
#include "qvsata/hosting/substitutes/Locator.h"
#include "qvsata/hosting/substitutes/PathParser.h"
#include "qvsata/service/JournaledMachine.h"
#include "qvsata/service/PublishedNamespace.h"
#include "qvsata/service/RecordedMachine.h"
#include "qvsata/service/StartProvider.h"
#include "source/Namespaces.h"

namespace qv::service {
namespace {

std::string ThisComputer() {
    std::wstring name(MAX_COMPUTERNAME_LENGTH + 1, L'\0');
    auto length = static_cast<DWORD>(name.size());
    windows::ThrowIfFailed(
        GetComputerNameW(name.data(), &length) ? S_OK : HRESULT_FROM_WIN32(GetLastError()));
    name.resize(length);
    return windows::ToNarrow(name, CP_UTF8);
}

windows::ComPtr<IUnknown> CreateRegistered(REFCLSID classId) {
    windows::ComPtr<IUnknown> object;
    windows::ThrowIfFailed(
        CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object)));
    return object;
}

/// Loads the registered library, without an object of it. Returns its module.
HMODULE RegisteredModule() {
    windows::ComPtr<IUnknown> factory;
    windows::ThrowIfFailed(CoGetClassObject(provider::instanceProviderId, CLSCTX_INPROC_SERVER,
                                            nullptr, IID_PPV_ARGS(&factory)));
    HMODULE module = nullptr;
    const void* const* functions = *reinterpret_cast<void***>(factory.Get());
    const BOOL found = GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<LPCWSTR>(functions[0]), &module);
    windows::ThrowIfFailed(found ? S_OK : HRESULT_FROM_WIN32(GetLastError()));
    return module;
}

}  // namespace

ManagementHost::ManagementHost(const HostOptions& options)
    : journal_(options.journal),
      namespace_(OpenPublished(*options.classes, options.recorded
                                                     ? options.recorded->Computer().server
                                                     : ThisComputer())),
      recordings_(options.recorded ? std::make_shared<RecordingSequence>(RecordingsOf(options))
                                   : nullptr),
      machine_(WithPublished(
          namespace_,
          recordings_
              ? WithJournal(ConnectRecorded(recordings_), MachineKind::recorded, journal_)
              : WithJournal(ConnectLive(options.queryTimeout), MachineKind::live, journal_))) {
    locator_.emplace(CLSID_WbemAdministrativeLocator,
                     [machine = machine_](REFIID iid, void** object) {
                         return windows::MakeObject<Locator>(machine)->QueryInterface(iid, object);
                     });
    pathParser_.emplace(windows::pathParserClassId, [](REFIID iid, void** object) {
        return windows::MakeObject<PathParser>()->QueryInterface(iid, object);
    });
    if (!options.registered) {
        library_.emplace(options.library.empty() ? options.programFolder / "QVWMISATA.dll"
                                                 : options.library);
    }
    module_ = library_ ? library_->Module() : RegisteredModule();
    if (options.logFolder) {
        logs_.emplace(module_, *options.logFolder);
    }
    if (options.recorded) {
        names_.emplace(module_, options.recorded->Computer());
    }
    provider_ = std::make_shared<ProviderObject>(
        Create(provider::instanceProviderId), windows::ToWide(providerNamespace), *Connect().Get());
    AttachProvider(*namespace_, std::make_shared<const ProviderSource>(provider_), options);
}

ManagementHost::~ManagementHost() {
    ReleaseProvider();
}

RecordedHost ManagementHost::Computer() const {
    return recordings_ ? recordings_->Present()->WithoutRows() : ReadLiveComputer();
}

void ManagementHost::ReleaseProvider() {
    namespace_->Attach(nullptr);
    provider_.reset();
}

std::unique_ptr<EventFeed> ManagementHost::Subscribe() const {
    return std::make_unique<HostedEvents>(*this);
}

windows::ComPtr<IUnknown> ManagementHost::Create(REFCLSID classId) const {
    return library_ ? library_->Create(classId) : CreateRegistered(classId);
}

windows::ComPtr<IWbemServices> ManagementHost::Connect() const {
    return windows::MakeObject<ServicesFace>(namespace_);
}

bool ManagementHost::CanUnloadLibrary() const {
    return !library_ || library_->CanUnload();
}

std::unique_ptr<ProviderHost> StartProvider(const HostOptions& options) {
    return std::make_unique<ManagementHost>(options);
}

std::string WhyNotStarted(const HostOptions&) {
    return {};
}

}  // namespace qv::service
