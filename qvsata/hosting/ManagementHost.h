#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "qvsata/hosting/ComApartment.h"
#include "qvsata/hosting/ProviderLibrary.h"
#include "qvsata/hosting/ProviderObject.h"
#include "qvsata/hosting/substitutes/ComputerNamePatch.h"
#include "qvsata/hosting/substitutes/LogPatch.h"
#include "qvsata/hosting/substitutes/ServedClass.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::service {

/// The embedded management service. It loads the provider's library and serves it a recorded host
/// or this machine. At most one object per process: its replacements of the system's locator, path
/// parser and host names apply to the whole process. The creating thread joins the multithreaded
/// apartment; any thread of that apartment may use the object.
class ManagementHost final : public ProviderHost {
public:
    /// Reads the MOF, loads the library and initialises the provider.
    /// @throws MofError; std::system_error if the library cannot be loaded or its logs cannot be
    /// written; otherwise RequestError with the status of the failed step.
    explicit ManagementHost(const HostOptions& options);
    ManagementHost(const ManagementHost&) = delete;
    ManagementHost& operator=(const ManagementHost&) = delete;
    ~ManagementHost() override;

    const Namespace& Published() const override { return *namespace_; }
    const Connector& Machine() const override { return machine_; }
    RecordedHost Computer() const override;
    SourceJournal& Journal() const override { return *journal_; }

    /// Returns the provider itself, for raw requests.
    ProviderObject& Provider() const { return *provider_; }

    /// Releases the provider: requests find no instances afterwards.
    void ReleaseProvider();

    RecordingSequence* Recordings() const override { return recordings_.get(); }
    std::unique_ptr<EventFeed> Subscribe() const override;

    /// Creates another object of the provider's library, or of the registered provider. Throws
    /// RequestError.
    windows::ComPtr<IUnknown> Create(REFCLSID classId) const;

    /// Returns the library's module, however it was loaded.
    HMODULE ProviderModule() const { return module_; }

    /// Returns a new connection to the provider's namespace, as the locator returns it.
    windows::ComPtr<IWbemServices> Connect() const;

    /// Returns whether the provider's library is no longer in use; true for a registered provider.
    bool CanUnloadLibrary() const;

private:
    ComApartment apartment_;
    std::shared_ptr<SourceJournal> journal_;
    std::shared_ptr<Namespace> namespace_;
    std::shared_ptr<RecordingSequence> recordings_;
    Connector machine_;
    std::optional<ServedClass> locator_;
    std::optional<ServedClass> pathParser_;
    std::optional<ProviderLibrary> library_;
    HMODULE module_ = nullptr;
    std::optional<LogPatch> logs_;  ///< outlives the objects of the library: they log their end
    std::optional<ComputerNamePatch> names_;
    std::shared_ptr<ProviderObject> provider_;
};

}  // namespace qv::service
