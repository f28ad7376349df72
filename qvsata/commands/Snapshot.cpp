#include "qvsata/commands/Snapshot.h"

#include <array>
#include <optional>
#include <utility>

#include "catalogue/Classes.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "source/Namespaces.h"

namespace qv::tool {
namespace {

/// A source of the disks' members other than the disks themselves, and what rests on it.
struct MemberSource {
    std::string_view nameSpace;
    std::string_view className;
    std::array<const char*, 3> members;
};

constexpr std::array memberSources{
    MemberSource{cimNamespace, "Win32_PhysicalMedia", {"serialNumber", "decodedSerialNumber"}},
    MemberSource{cimNamespace, "Win32_IDEController", {"attachedTo", "attachedToId"}},
    MemberSource{cimNamespace, "Win32_IDEControllerDevice", {"attachedTo", "attachedToId"}},
    MemberSource{wmiNamespace,
                 "MSStorageDriver_FailurePredictStatus",
                 {"failurePredicted", "watched", "whyUnwatched"}},
};

void ReadDisks(const service::ProviderHost& host, view::Snapshot& snapshot) {
    const std::size_t begin = host.Journal().Size();
    snapshot.disks = ReadOsDisks(host);
    const std::vector<service::SourceQuery> queries = host.Journal().Queries(begin);
    for (const MemberSource& source : memberSources) {
        if (!IsUnread(queries, source.nameSpace, source.className)) {
            continue;
        }
        for (const char* const member : source.members) {
            if (member != nullptr) {
                snapshot.unreadMembers.insert(member);
            }
        }
    }
}

void ReadPublished(const service::ProviderHost& host, view::Snapshot& snapshot) {
    for (const PublishedClass& published : PublishedClasses()) {
        const std::size_t begin = host.Journal().Size();
        for (const auto& object : Take(host.Published().Enumerate(published.name))) {
            snapshot.instances.push_back(
                view::InstanceItem(ObjectAsJson(*object), published.association != nullptr));
            if (published.name == "QV_WinComputerSystem") {
                snapshot.computer = service::TextOf(*object, "Name");
            }
        }
        if (!UnreadSources(host.Journal().Queries(begin)).empty()) {
            snapshot.unreadClasses.emplace(published.name);
        }
    }
}

void ReadWatched(const service::ProviderHost& host, view::Snapshot& snapshot) {
    const std::size_t begin = host.Journal().Size();
    const service::MachineQueries machine(host.Machine());
    service::ComputerNames names;
    names.dnsFullyQualified = snapshot.computer;
    std::optional<WatchedDisks> watched = ReadWatchedDisks(machine, service::RecordedNames(names));
    if (watched && UnreadSources(host.Journal().Queries(begin)).empty()) {
        snapshot.watched = std::move(watched->disks);
    }
}

}  // namespace

view::Snapshot ReadSnapshot(const service::ProviderHost& host, std::string name) {
    view::Snapshot snapshot;
    snapshot.name = std::move(name);
    ReadDisks(host, snapshot);
    ReadPublished(host, snapshot);
    ReadWatched(host, snapshot);
    return snapshot;
}

}  // namespace qv::tool
