#include "qvsata/capture/Redacted.h"

#include <stdexcept>
#include <utility>

#include "qvsata/capture/Leaks.h"
#include "qvsata/capture/Related.h"
#include "qvsata/recorded/HostText.h"

namespace qv::capture {

RedactedHost Redact(const service::RecordedHost& host, const RedactionKey& key) {
    // Replacements side by side may be a secret of the same recording by chance.
    constexpr unsigned attempts = 64;
    const service::RecordedHost before = Related(host);
    for (unsigned attempt = 1; attempt <= attempts; ++attempt) {
        Redaction redaction(before, key, attempt);
        service::RecordedHost after = redaction.Applied(before);
        std::string text = service::HostAsText(after);
        if (redaction.IsDistinct() && LeaksIn(text, redaction.Reaches()).empty()) {
            return {before, std::move(after), std::move(redaction), std::move(text)};
        }
    }
    throw std::runtime_error("the recording cannot be redacted: names or serial numbers remain");
}

}  // namespace qv::capture
