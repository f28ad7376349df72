#pragma once

#include "tests/support/Builders.h"

namespace qv::test {

/// A host with one disk on the one channel of its one controller: each class has one instance.
struct OneDiskHost : Builders {
    OneDiskHost() {
        host.Answer(disksQuery, {Disk(diskId)});
        host.Answer(mediaQuery, {Media(drive0, "SN")});
        host.Answer(controllersQuery, {Controller(ahciId), Controller(channelId)});
        host.Answer(controllerLinksQuery,
                    {ControllerLink(ahciId, channelId), ControllerLink(channelId, diskId)});
        host.Answer(partitionLinksQuery, {PartitionLink(drive0, "Disk #0, Partition #0")});
        host.Answer(partitionsQuery, {Partition("Disk #0, Partition #0")});
        host.Answer(publishedDisksQuery, {{{"OperationalStatus", std::vector<std::int32_t>{3}}}});
        ServeWith(host, ahciId, "pciide");
    }
};

}  // namespace qv::test
