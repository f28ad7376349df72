#pragma once

#include <vector>

#include "nlohmann/json.hpp"
#include "qvsata/doctor/Links.h"
#include "qvsata/view/text/StyledText.h"

namespace qv::doctor {

/// Returns a line for each link: its name and OK, problem, note or not checked, with what is wrong;
/// below a problem the command that mends it.
view::StyledText LinksAsText(const std::vector<Link>& links);

/// Returns {"links": [...]}, each link with "name", "state", "text" and "mend".
nlohmann::ordered_json LinksAsJson(const std::vector<Link>& links);

/// Returns the state that decides the exit code: a problem, otherwise a link that was not checked
/// though it could have been, otherwise OK.
State WorstOf(const std::vector<Link>& links);

}  // namespace qv::doctor
