#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "qvsata/hosting/ComApartment.h"
#include "qvsata/hosting/ProviderLibrary.h"
#include "qvsata/hosting/ProviderObject.h"
#include "qvsata/hosting/substitutes/ComputerNamePatch.h"
#include "qvsata/hosting/substitutes/ServedClass.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::service {

/// The embedded management service: plays the management service for the provider, whose library it
/// loads, on a recorded host or on this machine. One at a time in a process: what it puts in place
/// of the system's locator, path parser and host names holds for the whole process. The thread that
/// makes it joins the multithreaded apartment; any thread of that apartment may use it.
class ManagementHost final : public ProviderHost {
public:
    /// Reads the MOF, loads the library and initialises the provider.
    /// @throws MofError; std::system_error when the library cannot be loaded; RequestError with the
    /// status of what failed otherwise.
    explicit ManagementHost(const HostOptions& options);
    ManagementHost(const ManagementHost&) = delete;
    ManagementHost& operator=(const ManagementHost&) = delete;
    ~ManagementHost() override;

    const Namespace& Published() const override { return *namespace_; }

    /// The provider itself, for requests without a client's conveniences.
    ProviderObject& Provider() const { return *provider_; }

    /// Lets go of the provider: requests find no instances from now on.
    void ReleaseProvider();

    RecordingSequence* Recordings() const override { return recordings_.get(); }
    std::unique_ptr<EventFeed> Subscribe() const override;

    /// Another object of the provider's library, or of the registered provider. Raises
    /// RequestError.
    windows::ComPtr<IUnknown> Create(REFCLSID classId) const;

    /// The library's module, whichever way it was loaded.
    HMODULE ProviderModule() const { return module_; }

    /// A new connection to the provider's namespace, as the locator gives it.
    windows::ComPtr<IWbemServices> Connect() const;

    /// Whether nothing of the provider's library is in use; true for a registered provider.
    bool CanUnloadLibrary() const;

private:
    ComApartment apartment_;
    std::shared_ptr<Namespace> namespace_;
    std::shared_ptr<RecordingSequence> recordings_;
    std::optional<ServedClass> locator_;
    std::optional<ServedClass> pathParser_;
    std::optional<ProviderLibrary> library_;
    HMODULE module_ = nullptr;
    std::optional<ComputerNamePatch> names_;
    std::shared_ptr<ProviderObject> provider_;
};

}  // namespace qv::service
