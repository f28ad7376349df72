#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/capture/Reach.h"

namespace qv::capture {

/// Searches a text for secrets, ignoring case: as they are, escaped as in a path and in JSON, and
/// as the hexadecimal codes of their characters, also with each pair of characters swapped. A
/// secret that reaches to words only is searched for as a word; one that reaches to places only is
/// not searched for. Returns the secrets that it finds.
std::vector<std::wstring> LeaksIn(std::string_view text,
                                  const std::vector<std::pair<std::wstring, Reach>>& secrets);

}  // namespace qv::capture
