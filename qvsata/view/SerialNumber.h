#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvsata/view/text/StyledText.h"

namespace qv::view {

/// Returns the text that a serial number encodes: some drivers report the hexadecimal codes of its
/// characters, of which each pair is swapped ("2020565357..." for "  WS..."). If that reading has a
/// blank inside and the one without swapping has none, it is the latter. Returns nothing for a
/// serial number that is not encoded: shorter than eight characters, with other than hexadecimal
/// digits, or not of printable characters.
std::optional<std::string> DecodedSerialNumber(std::string_view raw);

/// Returns a serial number for people: trimmed, and followed by the decoded text in parentheses if
/// it is encoded; a dash if it is empty.
std::string SerialNumberText(std::string_view raw);

/// Returns the same after a label; "not readable" for an empty serial number that was not read.
Span SerialNumberSpan(std::string_view label, std::string_view raw, bool isRead);

}  // namespace qv::view
