#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv::metrics {

/// A label of a series. One with an empty value is left out, because both mean the same.
struct Label {
    std::string_view name;
    std::string value;  ///< any text, also of a device
};

/// A series of a family and its value.
struct Sample {
    std::vector<Label> labels;
    double value;
};

/// A gauge with all its series.
struct Family {
    std::string_view name;
    std::string_view help;  ///< one line without backslashes
    std::vector<Sample> samples;
};

/// Returns families in the text format of Prometheus, version 0.0.4. A family without series is
/// left out. A label's value has 128 bytes at most: a longer one is cut between characters and ends
/// with "…". Its control characters and bytes that are not UTF-8 are shown as codes.
std::string ExpositionText(const std::vector<Family>& families);

}  // namespace qv::metrics
