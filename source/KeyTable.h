#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// A list of texts, indexed for finding them in other texts. The distinct texts are sorted, after
/// the empty text, and each is linked to the longest other one with which it begins. So all texts
/// with which a given text begins are on one chain, which starts at the last text that sorts not
/// after it and ends at the empty text. Bytes are compared exactly.
///
/// A look-up takes a time of the order of the text's length and of what it finds, with a factor for
/// the logarithm of the list's length; Contained is a look-up from each of the text's bytes on.
class KeyTable {
public:
    /// Positions in the list from which the table was made, in ascending order.
    using Places = std::vector<std::size_t>;

    explicit KeyTable(std::vector<std::string> texts);

    /// Returns the texts equal to the given one.
    Places Equal(std::string_view text) const;
    /// Returns the texts equal to one of the given ones.
    Places EqualToAny(const std::vector<std::string>& texts) const;
    /// Returns the texts with which the given one begins; the empty text is always one of them.
    Places Beginnings(std::string_view text) const;
    /// Returns the texts that occur anywhere in the given one; the empty text always does.
    Places Contained(std::string_view text) const;

private:
    using Numbers = std::set<std::size_t>;

    struct Entry {
        std::string text;
        Places places;
        std::size_t beginning = 0;  ///< index of the longest other entry with which the text begins
        std::size_t depth = 0;      ///< number of entries behind it on its chain
        std::size_t leap = 0;       ///< index of an entry further down the chain
    };

    void Add(std::string text);
    std::size_t LongestBeginning(std::string_view text) const;
    void CollectBeginnings(std::string_view text, Numbers& found) const;
    void CollectEqual(std::string_view text, Numbers& found) const;
    Places PlacesOf(const Numbers& found) const;

    std::vector<Entry> entries_;          ///< sorted by text; the first is the empty text
    std::array<bool, 256> firstBytes_{};  ///< whether any text begins with the byte
};

}  // namespace qv
