#pragma once

#include <memory>
#include <string_view>

#include "qvsata/recorded/RecordingSequence.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Returns a namespace of a recorded host; null if it was not recorded. Its classes are known by
/// name only; its instances are the recorded rows. `spelling` is the name in __NAMESPACE and __PATH
/// of the objects. A query of a class recorded as failing fails with Status::failed.
std::shared_ptr<const Namespace> OpenRecorded(std::shared_ptr<const RecordedHost> host,
                                              std::string_view spelling);

/// Returns a connector to the namespaces of the recording that is selected at the time of the
/// connection. Connecting fails with `invalidNamespace` if the recording lacks the namespace. A
/// connection keeps its recording.
Connector ConnectRecorded(std::shared_ptr<const RecordingSequence> recordings);

/// Returns a connector to the namespaces of one recording.
Connector ConnectRecorded(std::shared_ptr<const RecordedHost> host);

}  // namespace qv::service
