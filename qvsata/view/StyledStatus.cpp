#include "qvsata/view/StyledStatus.h"

#include <string>
#include <string_view>

#include "qvsata/view/text/Characters.h"

namespace qv::view {

Style StyleOf(const Health& status) {
    switch (SeverityOf(status)) {
        case Severity::fine:
            return Style::good;
        case Severity::failed:
            return Style::bad;
        case Severity::unknown:
        case Severity::degraded:
        case Severity::failurePredicted:
            break;
    }
    return Style::caution;
}

Span StatusSpan(const Health& status) {
    const std::string_view mark = SeverityOf(status) == Severity::fine ? "" : "! ";
    return {std::string(mark) + Printable(status.word), StyleOf(status)};
}

}  // namespace qv::view
