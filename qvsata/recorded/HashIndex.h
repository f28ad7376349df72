#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "source/Text.h"

namespace qv::service {

/// Places by texts, of which it keeps the hashes only: an entry of a long text costs no more than
/// one of a short text.
class HashIndex {
public:
    void Add(const std::string& text, std::size_t place);

    /// Returns the places of the text, and perhaps of others, in ascending order.
    std::vector<std::size_t> Find(const std::string& text) const;

    /// Returns the first place of the text that `accepts(place)` takes; nothing if there is none.
    template <typename Accepts>
    std::optional<std::size_t> FindFirst(const std::string& text, Accepts accepts) const {
        const std::size_t hash = std::hash<std::string>{}(text);
        for (auto entry = entries_.lower_bound({hash, 0});
             entry != entries_.end() && entry->first == hash; ++entry) {
            if (accepts(entry->second)) {
                return entry->second;
            }
        }
        return std::nullopt;
    }

private:
    std::set<std::pair<std::size_t, std::size_t>> entries_;  ///< hash, place
};

/// Returns the element of that name, ignoring case; null if there is none.
/// @param byName the elements' places by their folded names
template <typename Elements>
auto* FindNamed(Elements& elements, const HashIndex& byName, std::string_view name) {
    const auto found = byName.FindFirst(FoldCase(name), [&](std::size_t place) {
        return EqualsIgnoringCase(elements[place].Name(), name);
    });
    return found ? &elements[*found] : nullptr;
}

}  // namespace qv::service
