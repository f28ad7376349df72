#pragma once

#include <cstddef>
#include <random>
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

/// Returns a letter of the same alphabet, in lower case, or a digit. It may be the same one: the
/// choice does not depend on it.
wchar_t AnyLike(wchar_t folded, std::mt19937& random);

/// Returns a folded character in the case of `original`, which is of the same alphabet.
wchar_t InCaseOf(wchar_t original, wchar_t folded);

/// Returns whether no letter or digit is beside a part of a text.
bool IsWordAt(std::wstring_view text, std::size_t place, std::size_t length);

/// Returns whether a text contains another as a word.
bool ContainsWord(std::wstring_view text, std::wstring_view word);

/// Returns the text without spaces at its ends.
std::wstring_view Trimmed(std::wstring_view text);

}  // namespace qv::capture
