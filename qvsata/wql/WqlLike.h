#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv::service {

/// A pattern of WQL's LIKE, matched without regard to the case of ASCII letters: % any text,
/// _ one character, [abc] [a-c] one of a set, [^abc] one that is not in it. Immutable; may be used
/// from several threads at once. Time grows with the product of the lengths at worst.
class LikePattern {
public:
    /// A set that is not closed stands for its characters; see IsClosed.
    explicit LikePattern(std::string_view pattern);

    bool Matches(std::string_view text) const;

    /// Whether every set of a pattern is closed.
    static bool IsClosed(std::string_view pattern);

private:
    // What one character of the text has to be: within a range (or, negated, in none), or
    // anything of any length.
    struct Element {
        bool anyText = false;
        bool negated = false;
        std::vector<std::pair<char32_t, char32_t>> ranges;

        bool Accepts(char32_t character) const;
    };

    static std::vector<Element> Parse(std::u32string_view pattern, bool& closed);

    std::vector<Element> elements_;
};

}  // namespace qv::service
