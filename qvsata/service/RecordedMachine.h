#pragma once

#include <memory>
#include <string_view>

#include "qvsata/recorded/RecordingSequence.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// Returns a namespace of a recorded host, its classes known by name and its instances the recorded
/// rows; null when the namespace was not recorded. `spelling` is what __NAMESPACE and __PATH of the
/// objects repeat. The query of a class that was recorded as failing fails with Status::failed.
std::shared_ptr<const Namespace> OpenRecorded(std::shared_ptr<const RecordedHost> host,
                                              std::string_view spelling);

/// Connects to the namespaces of the recording that is the present one at that time;
/// `invalidNamespace` for one that it lacks. A connection keeps its recording.
Connector ConnectRecorded(std::shared_ptr<const RecordingSequence> recordings);

/// Connects to the namespaces of one recording.
Connector ConnectRecorded(std::shared_ptr<const RecordedHost> host);

}  // namespace qv::service
