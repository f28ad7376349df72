#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace qv::view {

/// The health that an instance or a disk of the operating system reports.
struct Health {
    std::optional<std::int64_t> code;  ///< CIM operational status, the first one, if any
    std::string word;                  ///< never empty: "no status" if none is reported

    bool operator==(const Health&) const = default;
};

/// How bad a health is, in ascending order.
enum class Severity { fine, unknown, degraded, failurePredicted, failed };

Severity SeverityOf(const Health& health);

/// Returns the health of a disk with a failure-prediction row that predicts a failure, or with none
/// that does: "failure predicted (reported OK)" if the reported status does not say so itself. The
/// provider does not publish the prediction.
Health WithPrediction(const Health& reported, bool failureIsPredicted);

}  // namespace qv::view
