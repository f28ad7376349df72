#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// Returns whether two texts are equal, ignoring the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

/// Returns the text with ASCII letters in lower case. Two texts have the same result exactly if
/// EqualsIgnoringCase holds for them.
std::string FoldCase(std::string_view text);

/// Returns the text with ASCII letters in upper case.
std::string ToUpper(std::string_view text);

/// Returns the text with every backslash replaced by an ampersand: the key text of a plug-and-play
/// device.
std::string EncodeDeviceId(std::string_view text);

/// Returns the text without backslashes.
std::string StripBackslashes(std::string_view text);

/// Returns the pieces between the list separators, unchanged. Consecutive separators enclose an
/// empty piece; an empty text has no pieces.
std::vector<std::string> SplitList(std::string_view text);

/// Returns the pieces joined by the list separator; the inverse of SplitList.
std::string JoinList(std::span<const std::string> pieces);

}  // namespace qv
