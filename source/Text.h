#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Equality without regard to the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// The text with ASCII letters in lower case: the same for exactly those texts that
/// EqualsIgnoringCase takes for equal.
std::string FoldCase(std::string_view text);

/// The text with ASCII letters in upper case.
std::string ToUpper(std::string_view text);

/// The text with every backslash replaced by an ampersand: the key text of a plug-and-play device.
std::string EncodeDeviceId(std::string_view text);

/// The text with every backslash removed.
std::string StripBackslashes(std::string_view text);

/// The pieces between the list separators, as they stand: consecutive separators give empty
/// pieces, an empty text gives no piece at all.
std::vector<std::string> SplitList(std::string_view text);

/// The pieces with the list separator between them; SplitList's inverse.
std::string JoinList(std::span<const std::string> pieces);

}  // namespace qv
