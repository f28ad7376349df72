#include "qvsata/wql/WqlLike.h"

#include <algorithm>
#include <cstddef>

#include "source/Text.h"

namespace qv::service {
namespace {

// One element per character of the UTF-8 text, case folded; a stray byte is a character.
std::u32string Characters(std::string_view text) {
    std::u32string characters;
    for (const char c : FoldCase(text)) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continues = (byte & 0xC0U) == 0x80U && !characters.empty();
        if (continues && characters.back() >= 0xC0U && characters.back() <= 0x3FFFFFU) {
            characters.back() = (characters.back() << 6U) | (byte & 0x3FU);
        } else {
            characters += byte;
        }
    }
    return characters;
}

}  // namespace

bool LikePattern::Element::Accepts(char32_t character) const {
    return negated != std::ranges::any_of(ranges, [character](const auto& range) {
               return range.first <= character && character <= range.second;
           });
}

std::vector<LikePattern::Element> LikePattern::Parse(std::u32string_view pattern, bool& closed) {
    std::vector<Element> elements;
    closed = true;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const char32_t c = pattern[i];
        Element& element = elements.emplace_back();
        // The first character of a set belongs to it even if it is a closing bracket.
        const std::size_t first = i + (pattern.substr(i).starts_with(U"[^") ? 2 : 1);
        const std::size_t end =
            c == U'[' ? pattern.find(U']', first + 1) : std::u32string_view::npos;
        if (c == U'%') {
            element.anyText = true;
        } else if (c == U'_') {
            element.negated = true;
        } else if (end == std::u32string_view::npos) {
            closed = closed && c != U'[';
            element.ranges.emplace_back(c, c);
        } else {
            element.negated = first == i + 2;
            for (i = first; i < end; ++i) {
                const bool isRange = i + 2 < end && pattern[i + 1] == U'-';
                element.ranges.emplace_back(pattern[i], pattern[isRange ? i + 2 : i]);
                i += isRange ? 2 : 0;
            }
        }
    }
    return elements;
}

LikePattern::LikePattern(std::string_view pattern) {
    bool closed = false;
    elements_ = Parse(Characters(pattern), closed);
}

bool LikePattern::IsClosed(std::string_view pattern) {
    bool closed = false;
    Parse(Characters(pattern), closed);
    return closed;
}

bool LikePattern::Matches(std::string_view text) const {
    const std::u32string characters = Characters(text);
    std::size_t element = 0;
    std::size_t position = 0;
    // Where to resume if the rest after the last % does not match: % then takes one more character.
    std::size_t resumeElement = elements_.size() + 1;
    std::size_t resumePosition = 0;
    while (position < characters.size()) {
        if (element < elements_.size() && elements_[element].anyText) {
            resumeElement = ++element;
            resumePosition = position;
        } else if (element < elements_.size() && elements_[element].Accepts(characters[position])) {
            ++element;
            ++position;
        } else if (resumeElement <= elements_.size()) {
            element = resumeElement;
            position = ++resumePosition;
        } else {
            return false;
        }
    }
    return std::all_of(elements_.begin() + static_cast<std::ptrdiff_t>(element), elements_.end(),
                       [](const Element& rest) { return rest.anyText; });
}

}  // namespace qv::service
