#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "nlohmann/json.hpp"
#include "qvsata/explain/Verdict.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::explain {

/// Verdicts, and what is wrong with the keys.
struct Explanation {
    std::vector<Verdict> verdicts;         ///< the rows of a class together
    std::vector<std::string_view> unread;  ///< the source classes that could not be read
    std::vector<std::string> keyWarnings;  ///< lines
};

/// What is said of the keys if there are no warnings.
inline constexpr std::string_view distinctKeys =
    "no published disk's ID is equal to another's or part of it, and each published disk has a "
    "serial number of its own";

/// Returns the verdicts class by class, a line for each row and each note, and the warnings.
view::StyledText ExplanationAsText(const Explanation& explanation);

/// Returns the members "verdicts", "unread" and "keyWarnings"; docs/JSON.md describes them.
nlohmann::ordered_json ExplanationAsJson(const Explanation& explanation);

}  // namespace qv::explain
