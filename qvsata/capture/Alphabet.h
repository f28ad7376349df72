#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qv::capture {

// The characters of texts that are replaced. A letter is replaced by a letter of the same alphabet
// and case, a digit by a digit; signs and spaces stay.

/// Returns the character in lower case.
wchar_t Folded(wchar_t character);

/// Returns the text in lower case.
std::wstring Folded(std::wstring_view text);

/// Returns whether the character is a letter or a digit.
bool IsReplaceable(wchar_t character);

/// Returns the number of letters and digits.
std::size_t CountReplaceable(std::wstring_view text);

/// Returns the letter of the same alphabet, or the digit, that is so many places further; the first
/// follows the last.
wchar_t Shifted(wchar_t folded, std::uint64_t places);

/// Returns the first letter of the same alphabet, or the digit 0.
wchar_t FirstLike(wchar_t folded);

/// Returns bytes that differ if the texts do. They are the same on each system, also for a
/// character that is two of UTF-16 and of which the first one stays.
std::string BytesOf(std::wstring_view text);

/// Returns a folded character in the case of `original`, which is of the same alphabet.
wchar_t InCaseOf(wchar_t original, wchar_t folded);

/// Returns whether no letter or digit is beside a part of a text.
bool IsWordAt(std::wstring_view text, std::size_t place, std::size_t length);

/// Returns whether a text contains another as a word.
bool ContainsWord(std::wstring_view text, std::wstring_view word);

/// Returns the text without spaces at its ends.
std::wstring_view Trimmed(std::wstring_view text);

}  // namespace qv::capture
