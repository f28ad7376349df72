#pragma once

#include <string>
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

/// Returns the verdicts class by class, a line for each row and each note, and the warnings.
view::StyledText ExplanationAsText(const Explanation& explanation);

/// Returns the members "verdicts", "unread" and "keyWarnings"; docs/JSON.md describes them.
nlohmann::ordered_json ExplanationAsJson(const Explanation& explanation);

}  // namespace qv::explain
