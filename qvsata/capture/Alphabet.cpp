#include "qvsata/capture/Alphabet.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qv::capture {
namespace {

/// The lower case letters of an alphabet, or its only ones.
struct Alphabet {
    unsigned first;
    unsigned last;
    unsigned toUpper;  ///< what a capital is less; 0 without capitals
};

constexpr std::array alphabets{
    Alphabet{'0', '9', 0},          Alphabet{'a', 'z', 0x20},
    Alphabet{0x00E0, 0x00F6, 0x20},                                  // Latin with accents
    Alphabet{0x00F8, 0x00FE, 0x20}, Alphabet{0x03B1, 0x03C9, 0x20},  // Greek
    Alphabet{0x0430, 0x044F, 0x20},                                  // Cyrillic
    Alphabet{0x0450, 0x045F, 0x50}, Alphabet{0x3041, 0x3093, 0},     // hiragana
    Alphabet{0x30A1, 0x30F3, 0},                                     // katakana
    Alphabet{0x4E00, 0x9FA5, 0},                                     // Chinese characters
    Alphabet{0xAC00, 0xD7A3, 0},                                     // hangul
};

// UTF-16: a character from firstPair on is two, of which the second one has the low bits.
constexpr unsigned firstPair = 0x10000;
constexpr unsigned firstOfTwo = 0xD800;
constexpr unsigned firstSecond = 0xDC00;
constexpr unsigned countOfSeconds = 0x400;

bool IsFirstOfTwo(unsigned code) {
    return code >= firstOfTwo && code < firstSecond;
}

/// Returns the alphabet of a character in lower case. Letters of the others are replaced within
/// groups of sixteen.
Alphabet AlphabetOf(wchar_t folded) {
    const auto code = static_cast<unsigned>(folded);
    const auto* const found = std::ranges::find_if(alphabets, [code](const Alphabet& alphabet) {
        return code >= alphabet.first && code <= alphabet.last;
    });
    return found == alphabets.end() ? Alphabet{code & ~0xFU, code | 0xFU, 0} : *found;
}

}  // namespace

wchar_t Folded(wchar_t character) {
    const auto code = static_cast<unsigned>(character);
    for (const Alphabet& alphabet : alphabets) {
        if (code + alphabet.toUpper >= alphabet.first && code + alphabet.toUpper <= alphabet.last) {
            return static_cast<wchar_t>(code + alphabet.toUpper);
        }
    }
    return character;
}

std::wstring Folded(std::wstring_view text) {
    std::wstring folded(text);
    std::ranges::transform(folded, folded.begin(), [](wchar_t one) { return Folded(one); });
    return folded;
}

bool IsReplaceable(wchar_t character) {
    constexpr unsigned ascii = 0x80;
    const wchar_t folded = Folded(character);
    if (IsFirstOfTwo(static_cast<unsigned>(folded))) {
        return false;
    }
    return static_cast<unsigned>(folded) >= ascii || (folded >= L'0' && folded <= L'9') ||
           (folded >= L'a' && folded <= L'z');
}

std::size_t CountReplaceable(std::wstring_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(text, IsReplaceable));
}

wchar_t Shifted(wchar_t folded, std::uint64_t places) {
    const Alphabet alphabet = AlphabetOf(folded);
    const unsigned count = alphabet.last - alphabet.first + 1;
    const auto place = static_cast<unsigned>(folded) - alphabet.first;
    return static_cast<wchar_t>(alphabet.first +
                                (place + static_cast<unsigned>(places % count)) % count);
}

wchar_t FirstLike(wchar_t folded) {
    return static_cast<wchar_t>(AlphabetOf(folded).first);
}

std::string BytesOf(std::wstring_view text) {
    constexpr unsigned bitsOfByte = 8;
    std::string bytes;
    for (const wchar_t character : text) {
        auto code = static_cast<unsigned>(character);
        if (IsFirstOfTwo(code)) {
            continue;
        }
        code = code < firstPair ? code : firstSecond + (code - firstPair) % countOfSeconds;
        bytes += static_cast<char>(code >> bitsOfByte);
        bytes += static_cast<char>(code);
    }
    return bytes;
}

wchar_t InCaseOf(wchar_t original, wchar_t folded) {
    const bool isUpper = Folded(original) != original;
    return isUpper
               ? static_cast<wchar_t>(static_cast<unsigned>(folded) - AlphabetOf(folded).toUpper)
               : folded;
}

bool IsWordAt(std::wstring_view text, std::size_t place, std::size_t length) {
    const bool begins = place == 0 || !IsReplaceable(text[place - 1]);
    const std::size_t end = place + length;
    return begins && (end == text.size() || !IsReplaceable(text[end]));
}

bool ContainsWord(std::wstring_view text, std::wstring_view word) {
    for (std::size_t place = text.find(word); place != text.npos;
         place = text.find(word, place + 1)) {
        if (IsWordAt(text, place, word.size())) {
            return true;
        }
    }
    return false;
}

std::wstring_view Trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring_view::npos
               ? std::wstring_view()
               : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

}  // namespace qv::capture
