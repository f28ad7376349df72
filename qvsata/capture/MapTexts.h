#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// A text of a row: the name of its property, and the text or an element of it. The number of a
/// property whose whole text would be a secret is the text of its digits.
using TextMap = std::function<std::string(std::string_view property, const std::string& text)>;

/// Returns a recording with the names of `computer`, the same classes and rows, and each text of a
/// row replaced. Other values, failures and the system stay. Throws std::logic_error if the digits
/// of a number become a text that is neither empty nor a number.
service::RecordedHost MapTexts(const service::RecordedHost& host,
                               const service::RecordedHost& computer, const TextMap& map);

/// Calls visit(property, text) for each text of the rows.
void VisitTexts(
    const service::RecordedHost& host,
    const std::function<void(std::string_view property, const std::string& text)>& visit);

}  // namespace qv::capture
