#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qvsata/recorded/RecordingSequence.h"
#include "qvsata/service/EventFeed.h"
#include "qvsata/service/Namespace.h"
#include "qvsata/service/Services.h"
#include "qvsata/service/SourceJournal.h"

namespace qv::service {

/// The options with which a provider is started.
struct HostOptions {
    /// The recorded host that replaces the machine; null: the machine itself.
    std::shared_ptr<const RecordedHost> recorded;
    /// Later recordings of the same computer, for ProviderHost::Recordings to step through.
    std::vector<std::shared_ptr<const RecordedHost>> laterRecordings;
    /// The MOF files of the provider's namespace, in reading order.
    std::vector<std::filesystem::path> mofFiles;
    /// The provider's library; empty: QVWMISATA.dll beside the program.
    std::filesystem::path library;
    /// True: the provider is created by its class ID, as registered on this machine, instead of
    /// from `library`.
    bool registered = false;
    /// The longest time for one query of the machine itself; unset for no limit.
    std::optional<std::chrono::milliseconds> queryTimeout;
    /// Notes all queries of the machine, from the start on; see ProviderHost::Journal.
    std::shared_ptr<SourceJournal> journal = std::make_shared<SourceJournal>();
};

/// Returns the recordings of the options, in order; at least one.
std::vector<std::shared_ptr<const RecordedHost>> RecordingsOf(const HostOptions& options);

/// Reads the classes of the provider's namespace. Throws MofError.
ClassRepository ReadPublishedClasses(const std::vector<std::filesystem::path>& mofFiles);

/// A provider running on a machine, recorded or live.
class ProviderHost {
public:
    virtual ~ProviderHost() = default;

    /// Returns the namespace in which the provider publishes, as its clients see it.
    virtual const Namespace& Published() const = 0;

    /// Connects to the machine on which the provider runs; root\QVQ is the provider's namespace.
    virtual const Connector& Machine() const = 0;

    /// Returns the journal of all queries of the machine, by the provider and through Machine().
    virtual SourceJournal& Journal() const = 0;

    /// Returns the recordings that replace the machine, one at a time; null on the machine itself.
    virtual RecordingSequence* Recordings() const = 0;

    /// Subscribes to the provider's events. A StopRequest of the caller ends waits. Throws
    /// RequestError.
    virtual std::unique_ptr<EventFeed> Subscribe() const = 0;
};

/// Starts the provider: on Windows the library in an embedded management service, elsewhere the
/// provider's core, which is part of this program. Throws MofError, std::system_error if the
/// library cannot be loaded, otherwise RequestError with the status of the failed step.
std::unique_ptr<ProviderHost> StartProvider(const HostOptions& options);

/// Returns why this program cannot start a provider with these options, as the rest of an error
/// line ("--live needs ..."); empty if it can.
std::string WhyNotStarted(const HostOptions& options);

}  // namespace qv::service
