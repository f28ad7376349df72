#include "qvsata/view/HealthCounts.h"

#include "qvsata/view/StyledStatus.h"
#include "qvsata/view/text/Characters.h"

namespace qv::view {

Span CountsSpan(const std::string& what, const HealthCounts& counts) {
    std::string text = what;
    std::string separator = ": ";
    for (const auto& [health, count] : counts) {
        text += separator + std::to_string(count) + ' ' + Printable(health.word);
        separator = ", ";
    }
    return {text, StyleOf(counts.back().first)};
}

}  // namespace qv::view
