#pragma once

#include <string>

#include "qvsata/capture/Redaction.h"
#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// A recording without what identifies its machine.
struct RedactedHost {
    service::RecordedHost before;  ///< what was redacted: the recording without unrelated rows
    service::RecordedHost after;
    Redaction redaction;
    std::string text;  ///< `after` as JSON, which was searched for secrets
};

/// Redacts a recording with a key. Throws std::runtime_error if a secret would remain.
RedactedHost Redact(const service::RecordedHost& host, const RedactionKey& key);

}  // namespace qv::capture
