#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "qvsata/recorded/RecordingSequence.h"
#include "qvsata/service/EventFeed.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// What a provider is started with.
struct HostOptions {
    /// The recorded host that stands for the machine; without one it is the machine itself.
    std::shared_ptr<const RecordedHost> recorded;
    /// The same computer as it was recorded later, for ProviderHost::Recordings to step to.
    std::vector<std::shared_ptr<const RecordedHost>> laterRecordings;
    /// The MOF files of the provider's namespace, in the order in which they are to be read.
    std::vector<std::filesystem::path> mofFiles;
    /// The provider's library.
    std::filesystem::path library;
    /// Whether the provider is created by its class ID, as it is registered on this machine,
    /// instead of from `library`.
    bool registered = false;
};

/// Returns the recordings of the options in order; there is at least one.
std::vector<std::shared_ptr<const RecordedHost>> RecordingsOf(const HostOptions& options);

/// Reads the classes of the provider's namespace. Raises MofError.
ClassRepository ReadPublishedClasses(const std::vector<std::filesystem::path>& mofFiles);

/// A provider at work on a machine, recorded or live.
class ProviderHost {
public:
    virtual ~ProviderHost() = default;

    /// The namespace that the provider publishes in, as its clients see it.
    virtual const Namespace& Published() const = 0;

    /// The recordings of which the present one stands for the machine; null on the machine itself.
    virtual RecordingSequence* Recordings() const = 0;

    /// Subscribes to the provider's events. A StopRequest of the caller ends waits. Raises
    /// RequestError.
    virtual std::unique_ptr<EventFeed> Subscribe() const = 0;
};

/// Starts the provider: on Windows the library in the place of the management service, elsewhere
/// the provider's core, which is part of this program. Raises MofError, std::system_error when the
/// library cannot be loaded, RequestError with the status of what failed otherwise.
std::unique_ptr<ProviderHost> StartProvider(const HostOptions& options);

/// Returns why this program cannot start a provider with these options, as a sentence's part
/// ("--live needs ..."); empty when it can.
std::string WhyNotStarted(const HostOptions& options);

}  // namespace qv::service
