#include "NativeAPI/KeyPairing.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <ranges>

#include "source/KeyTable.h"
#include "source/Text.h"

namespace qv {
namespace {

using Keys = std::span<const std::string>;

// How one key of a pair relates to the other.
enum class Part { whole, beginning, end, inside, element };

// Returns the key in the form that reduces the comparison to bytes from the beginning on.
std::string Comparable(const std::string& key, Part part) {
    if (part == Part::inside) {
        return key;
    }
    std::string comparable = FoldCase(key);
    if (part == Part::end) {
        std::ranges::reverse(comparable);
    }
    return comparable;
}

KeyTable::Places PartsOf(const std::string& text, const KeyTable& parts, Part part) {
    switch (part) {
        case Part::whole:
            return parts.Equal(text);
        case Part::beginning:
        case Part::end:
            return parts.Beginnings(text);
        case Part::inside:
            return parts.Contained(text);
        case Part::element:
            return parts.EqualToAny(SplitList(text));
    }
    return {};
}

using Bounded = std::optional<Partners>;

// Returns for each text the positions of the keys that are part of it; nothing if there are more
// than `most` in all.
Bounded FindParts(std::size_t most, Keys texts, Keys keys, Part part) {
    std::vector<std::string> comparable;
    comparable.reserve(keys.size());
    for (const std::string& key : keys) {
        comparable.push_back(Comparable(key, part));
    }
    const KeyTable table(std::move(comparable));
    Partners found;
    found.reserve(texts.size());
    for (const std::string& text : texts) {
        found.push_back(PartsOf(Comparable(text, part), table, part));
        if (found.back().size() > most) {
            return std::nullopt;
        }
        most -= found.back().size();
    }
    return found;
}

// Returns the same pairs by the keys of the other side, of which there are `count`.
Bounded Reversed(const Bounded& partners, std::size_t count) {
    if (!partners) {
        return std::nullopt;
    }
    Partners reversed(count);
    for (std::size_t first = 0; first < partners->size(); ++first) {
        for (const std::size_t second : (*partners)[first]) {
            reversed[second].push_back(first);
        }
    }
    return reversed;
}

Bounded Everyone(std::size_t most, std::size_t firstCount, std::size_t secondCount) {
    if (firstCount != 0 && secondCount > most / firstCount) {
        return std::nullopt;
    }
    std::vector<std::size_t> all(secondCount);
    std::iota(all.begin(), all.end(), std::size_t{0});
    return Partners(firstCount, all);
}

}  // namespace

Partners PairKeys(Keys firstKeys, Keys secondKeys, MatchRule rule) {
    return PairKeysUpTo(std::numeric_limits<std::size_t>::max(), firstKeys, secondKeys, rule)
        .value();
}

std::optional<Partners> PairKeysUpTo(std::size_t most, Keys firstKeys, Keys secondKeys,
                                     MatchRule rule) {
    const auto inFirst = [&](Part part) { return FindParts(most, firstKeys, secondKeys, part); };
    const auto inSecond = [&](Part part) {
        return Reversed(FindParts(most, secondKeys, firstKeys, part), firstKeys.size());
    };
    switch (rule) {
        case MatchRule::always:
            return Everyone(most, firstKeys.size(), secondKeys.size());
        case MatchRule::equal:
            return inFirst(Part::whole);
        case MatchRule::firstBeginsWith:
            return inFirst(Part::beginning);
        case MatchRule::firstEndsWith:
            return inFirst(Part::end);
        case MatchRule::secondBeginsWith:
            return inSecond(Part::beginning);
        case MatchRule::secondEndsWith:
            return inSecond(Part::end);
        case MatchRule::firstContains:
        case MatchRule::firstContainsToo:
            return inFirst(Part::inside);
        case MatchRule::secondContains:
            return inSecond(Part::inside);
        case MatchRule::firstListsSecond:
            return inFirst(Part::element);
        case MatchRule::secondListsFirst:
            return inSecond(Part::element);
    }
    return Partners(firstKeys.size());
}

}  // namespace qv
