#pragma once

#include <windows.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "qvsata/service/RecordedHost.h"
#include "qvsata/service/RecordingSequence.h"
#include "qvsata/service/com/ComApartment.h"
#include "qvsata/service/com/EmbeddedNamespace.h"
#include "qvsata/service/com/ProviderLibrary.h"
#include "qvsata/service/com/ProviderObject.h"
#include "qvsata/service/com/RecordedNames.h"
#include "qvsata/service/com/ServedClass.h"

namespace qv::service {

/// What the embedded management service is started with.
struct HostOptions {
    /// The recorded host that stands for the machine; without one it is the machine itself.
    std::shared_ptr<const RecordedHost> recorded;
    /// The same computer as it was recorded later, for ManagementHost::Recordings to step to.
    std::vector<std::shared_ptr<const RecordedHost>> laterRecordings;
    /// The MOF files of the provider's namespace, in the order in which they are to be read.
    std::vector<std::filesystem::path> mofFiles;
    /// The provider's library.
    std::filesystem::path library;
    /// Whether the provider is created by its class ID, as it is registered on this machine,
    /// instead of from `library`.
    bool registered = false;
};

/// The embedded management service: plays the management service for the provider, whose library it
/// loads, on a recorded host or on this machine. One at a time in a process: what it puts in place
/// of the system's locator, path parser and host names holds for the whole process. The thread that
/// makes it joins the multithreaded apartment; any thread of that apartment may use it.
class ManagementHost {
public:
    /// Reads the MOF, loads the library and initialises the provider.
    /// @throws MofError; std::system_error when the library cannot be loaded; RequestError with the
    /// status of what failed otherwise.
    explicit ManagementHost(const HostOptions& options);
    ManagementHost(const ManagementHost&) = delete;
    ManagementHost& operator=(const ManagementHost&) = delete;
    ~ManagementHost();

    /// The namespace of the provider: enumerations, gets and queries as a client makes them.
    const EmbeddedNamespace& Namespace() const { return *namespace_; }

    /// The provider itself, for requests without a client's conveniences.
    ProviderObject& Provider() const { return *provider_; }

    /// Lets go of the provider: requests find no instances from now on.
    void ReleaseProvider();

    /// The recordings of which the present one stands for the machine; null on the machine itself.
    RecordingSequence* Recordings() const { return recordings_.get(); }

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
    std::shared_ptr<EmbeddedNamespace> namespace_;
    std::shared_ptr<RecordingSequence> recordings_;
    std::optional<ServedClass> locator_;
    std::optional<ServedClass> pathParser_;
    std::optional<ProviderLibrary> library_;
    HMODULE module_ = nullptr;
    std::optional<RecordedNames> names_;
    std::shared_ptr<ProviderObject> provider_;
};

}  // namespace qv::service
