#include "qvsata/session/HostTopology.h"

#include <vector>

#include "qvsata/session/SourceReport.h"
#include "source/Namespaces.h"

namespace qv::tool {

view::Topology ReadTopology(const service::ProviderHost& host, const view::PublishedHost& published,
                            const view::OsDisks& disks) {
    view::Topology topology = view::BuildTopology(published, disks);
    const std::vector<service::SourceQuery> queries = host.Journal().Queries();
    // The provider queries the disks, too, and any of its queries may fail.
    topology.sight.disks =
        disks.disksAreRead && !IsUnread(queries, cimNamespace, "Win32_DiskDrive");
    topology.sight.controllers = !IsUnread(queries, cimNamespace, "Win32_IDEController");
    topology.sight.attachments = !IsUnread(queries, cimNamespace, "Win32_IDEControllerDevice");
    topology.sight.predictions =
        !IsUnread(queries, wmiNamespace, "MSStorageDriver_FailurePredictStatus");
    return topology;
}

}  // namespace qv::tool
