#include "qvsata/view/Health.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qv::view {
namespace {

constexpr std::int64_t predictedFailure = 5;
constexpr std::array severities{
    std::pair<std::int64_t, Severity>{2, Severity::fine},
    std::pair<std::int64_t, Severity>{3, Severity::degraded},
    std::pair<std::int64_t, Severity>{predictedFailure, Severity::failurePredicted},
    std::pair<std::int64_t, Severity>{6, Severity::failed},
};

}  // namespace

Severity SeverityOf(const Health& health) {
    const auto* const known = std::ranges::find(severities, health.code.value_or(0),
                                                &std::pair<std::int64_t, Severity>::first);
    return known == severities.end() ? Severity::unknown : known->second;
}

Health WithPrediction(const Health& reported, bool failureIsPredicted) {
    if (failureIsPredicted && SeverityOf(reported) < Severity::failurePredicted) {
        return {predictedFailure, "failure predicted (reported " + reported.word + ')'};
    }
    return reported;
}

}  // namespace qv::view
