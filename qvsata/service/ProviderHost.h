#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "qvsata/cim/FileBytes.h"
#include "qvsata/recorded/RecordingSequence.h"
#include "qvsata/service/EventFeed.h"
#include "qvsata/service/Namespace.h"
#include "qvsata/service/PublishedNamespace.h"
#include "qvsata/service/Services.h"
#include "qvsata/service/SourceJournal.h"

namespace qv::service {

/// The options with which a provider is started.
struct HostOptions {
    /// The recorded host that replaces the machine; null: the machine itself.
    std::shared_ptr<const RecordedHost> recorded;
    /// Later recordings of the same computer, for ProviderHost::Recordings to step through.
    std::vector<std::shared_ptr<const RecordedHost>> laterRecordings;
    /// The classes of the provider's namespace; never null.
    std::shared_ptr<const PublishedClasses> classes;
    /// The provider's library; empty: QVWMISATA.dll in `programFolder`.
    std::filesystem::path library;
    std::filesystem::path programFolder;
    /// True: the provider is created by its class ID, as registered on this machine, instead of
    /// from `library`.
    bool registered = false;
    /// The folder of the provider's logs; empty: it writes none; unset: as the machine's settings
    /// say.
    std::optional<std::filesystem::path> logFolder;
    /// The longest time for one query of the machine itself; unset for no limit.
    std::optional<std::chrono::milliseconds> queryTimeout;
    /// Makes, of the provider, the source that is attached to its namespace; unset: the provider.
    std::function<std::shared_ptr<const InstanceSource>(std::shared_ptr<const InstanceSource>,
                                                        const Namespace&)>
        guard;
    /// Notes all queries of the machine, from the start on; see ProviderHost::Journal.
    std::shared_ptr<SourceJournal> journal = std::make_shared<SourceJournal>();
};

/// Returns the recordings of the options, in order; at least one.
std::vector<std::shared_ptr<const RecordedHost>> RecordingsOf(const HostOptions& options);

/// Attaches the provider to its namespace, behind the guard of the options.
void AttachProvider(Namespace& published, std::shared_ptr<const InstanceSource> provider,
                    const HostOptions& options);

/// Reads the classes of the provider's namespace from MOF files, in order. The same files with the
/// same text as at the last call are not parsed again. Throws MofError, also if a file has more
/// than `mostBytes`.
std::shared_ptr<const PublishedClasses> ReadPublishedClasses(
    const std::vector<std::filesystem::path>& mofFiles, std::uintmax_t mostBytes = noFileLimit);

/// A provider running on a machine, recorded or live.
class ProviderHost {
public:
    virtual ~ProviderHost() = default;

    /// Returns the namespace in which the provider publishes, as its clients see it.
    virtual const Namespace& Published() const = 0;

    /// Connects to the machine on which the provider runs; root\QVQ is the provider's namespace.
    virtual const Connector& Machine() const = 0;

    /// Returns the names and the system of that machine, as a recording without rows.
    virtual RecordedHost Computer() const = 0;

    /// Returns the journal of all queries of the machine, by the provider and through Machine().
    virtual SourceJournal& Journal() const = 0;

    /// Returns the recordings that replace the machine, one at a time; null on the machine itself.
    virtual RecordingSequence* Recordings() const = 0;

    /// Subscribes to the provider's events. Throws RequestError.
    virtual std::unique_ptr<EventFeed> Subscribe() const = 0;
};

}  // namespace qv::service
