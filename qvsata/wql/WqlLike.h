#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv::service {

/// A pattern of WQL's LIKE, matched ignoring the case of ASCII letters: % matches any text, _ one
/// character, [abc] or [a-c] one character of a set, [^abc] one character not in it. Immutable; may
/// be used from several threads at once. Matching takes time proportional to the product of the
/// lengths at worst.
class LikePattern {
public:
    /// In a set without its closing bracket each character stands for itself; see IsClosed.
    explicit LikePattern(std::string_view pattern);

    bool Matches(std::string_view text) const;

    /// Returns whether every set of a pattern is closed.
    static bool IsClosed(std::string_view pattern);

private:
    // What one character of the text must be: within one of the ranges (negated: within none).
    // `anyText` stands for any text of any length.
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
