#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/service/InstanceSource.h"
#include "qvsata/service/Namespace.h"

namespace qv::tool {

/// Returns a source that asks `provider` but refuses requests for association classes that would
/// have more than `most` instances, before the provider builds them. It counts them by the
/// provider's table of associations from the keys of their ends, which it enumerates in
/// `published`, the namespace to which the source is attached. It also refuses storage extents, and
/// associations of them, if on one of the `recordings` the provider would join more than `most`
/// links of partitions to disks: each disk with the same ID joins them all.
std::shared_ptr<const service::InstanceSource> WithInstanceLimit(
    std::shared_ptr<const service::InstanceSource> provider, const service::Namespace& published,
    std::span<const std::shared_ptr<const service::RecordedHost>> recordings, std::size_t most);

}  // namespace qv::tool
