#include "qvsata/view/StyledStatus.h"

namespace qv::view {
namespace {

bool IsFine(const Health& status) {
    return status.code == 2;
}

}  // namespace

Style StyleOf(const Health& status) {
    constexpr std::int64_t error = 6;
    if (IsFine(status)) {
        return Style::good;
    }
    return status.code == error ? Style::bad : Style::caution;
}

Span StatusSpan(const Health& status) {
    return {(IsFine(status) ? "" : "! ") + status.word, StyleOf(status)};
}

}  // namespace qv::view
