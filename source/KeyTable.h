#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv {

/// A list of texts, arranged to be sought in other texts: sorted, each different one with the
/// longest other one that it begins with. Every text that a given text begins with is then on one
/// chain, which starts at the last one not sorted behind it. Bytes are compared as they stand.
class KeyTable {
public:
    /// The places of texts in the list that a table was made from, in ascending order.
    using Places = std::vector<std::size_t>;

    explicit KeyTable(std::vector<std::string> texts);

    /// The texts that equal the given one.
    Places Equal(std::string_view text) const;
    /// The texts that equal one of those given.
    Places EqualToAny(const std::vector<std::string>& texts) const;
    /// The texts that the given one begins with. Every text begins with the empty one.
    Places Beginnings(std::string_view text) const;
    /// The texts that occur anywhere in the given one. The empty one occurs in every text.
    Places Contained(std::string_view text) const;

private:
    using Numbers = std::vector<std::size_t>;

    struct Entry {
        std::string text;
        Places places;
        std::size_t beginning;  ///< number of the longest other entry that the text begins with
    };

    std::size_t LongestBeginning(std::string_view text) const;
    void CollectBeginnings(std::string_view text, Numbers& found) const;
    void CollectEqual(std::string_view text, Numbers& found) const;
    Places PlacesOf(Numbers found) const;

    std::vector<Entry> entries_;          ///< sorted by text
    std::array<bool, 256> firstBytes_{};  ///< whether a text begins with the byte
};

}  // namespace qv
