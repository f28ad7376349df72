#include "source/Text.h"

#include <algorithm>

#include "source/InstanceRecord.h"

namespace qv {
namespace {

constexpr char ToLowerAscii(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}

constexpr char ToUpperAscii(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - ('a' - 'A'))
                                                : character;
}

}  // namespace

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    return std::ranges::equal(left, right, {}, ToLowerAscii, ToLowerAscii);
}

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    std::ranges::transform(folded, folded.begin(), ToLowerAscii);
    return folded;
}

std::string ToUpper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), ToUpperAscii);
    return upper;
}

std::string EncodeDeviceId(std::string_view text) {
    std::string encoded(text);
    std::ranges::replace(encoded, '\\', '&');
    return encoded;
}

std::string StripBackslashes(std::string_view text) {
    std::string stripped(text);
    std::erase(stripped, '\\');
    return stripped;
}

std::vector<std::string> SplitList(std::string_view text) {
    std::vector<std::string> pieces;
    if (text.empty()) {
        return pieces;
    }
    for (;;) {
        const auto end = text.find(listSeparator);
        pieces.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + listSeparator.size());
    }
}

std::string JoinList(std::span<const std::string> pieces) {
    std::string joined;
    for (const std::string& piece : pieces) {
        if (&piece != &pieces.front()) {
            joined += listSeparator;
        }
        joined += piece;
    }
    return joined;
}

}  // namespace qv
