#include "source/KeyTable.h"

#include <algorithm>
#include <numeric>

namespace qv {

KeyTable::KeyTable(std::vector<std::string> texts) : entries_(1) {
    Places order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {},
                             [&](std::size_t place) -> const std::string& { return texts[place]; });
    for (const std::size_t place : order) {
        if (entries_.back().text != texts[place]) {
            Add(std::move(texts[place]));
        }
        entries_.back().places.push_back(place);
    }
}

// Adds a text that sorts after all others. The leaps are such that each chain can be searched in a
// number of steps of the order of the logarithm of its length.
void KeyTable::Add(std::string text) {
    firstBytes_[static_cast<unsigned char>(text.front())] = true;
    const std::size_t beginning = LongestBeginning(text);
    const Entry& next = entries_[beginning];
    const Entry& behind = entries_[next.leap];
    const bool asFar = next.depth - behind.depth == behind.depth - entries_[behind.leap].depth;
    const std::size_t leap = asFar ? behind.leap : beginning;
    entries_.push_back({std::move(text), {}, beginning, next.depth + 1, leap});
}

KeyTable::Places KeyTable::Equal(std::string_view text) const {
    Numbers found;
    CollectEqual(text, found);
    return PlacesOf(found);
}

KeyTable::Places KeyTable::EqualToAny(const std::vector<std::string>& texts) const {
    Numbers found;
    for (const std::string& text : texts) {
        CollectEqual(text, found);
    }
    return PlacesOf(found);
}

KeyTable::Places KeyTable::Beginnings(std::string_view text) const {
    Numbers found;
    CollectBeginnings(text, found);
    return PlacesOf(found);
}

KeyTable::Places KeyTable::Contained(std::string_view text) const {
    Numbers found;
    CollectBeginnings({}, found);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (firstBytes_[static_cast<unsigned char>(text[at])]) {
            CollectBeginnings(text.substr(at), found);
        }
    }
    return PlacesOf(found);
}

// Returns the index of the longest entry with which the text begins.
std::size_t KeyTable::LongestBeginning(std::string_view text) const {
    const auto behind = std::ranges::upper_bound(
        entries_, text, {}, [](const Entry& entry) -> std::string_view { return entry.text; });
    auto number = static_cast<std::size_t>(behind - entries_.begin()) - 1;
    const std::string& last = entries_[number].text;
    const auto common =
        static_cast<std::size_t>(std::ranges::mismatch(last, text).in1 - last.begin());
    // The first one on its chain that is no longer than what they have in common.
    while (entries_[number].text.size() > common) {
        const Entry& entry = entries_[number];
        number = entries_[entry.leap].text.size() > common ? entry.leap : entry.beginning;
    }
    return number;
}

// Follows the chain up to an entry that was found before: what is behind it was found with it.
void KeyTable::CollectBeginnings(std::string_view text, Numbers& found) const {
    auto number = LongestBeginning(text);
    while (found.insert(number).second) {
        number = entries_[number].beginning;
    }
}

void KeyTable::CollectEqual(std::string_view text, Numbers& found) const {
    const auto number = LongestBeginning(text);
    if (entries_[number].text.size() == text.size()) {
        found.insert(number);
    }
}

KeyTable::Places KeyTable::PlacesOf(const Numbers& found) const {
    Places places;
    for (const std::size_t number : found) {
        const Places& more = entries_[number].places;
        places.insert(places.end(), more.begin(), more.end());
    }
    std::ranges::sort(places);
    return places;
}

}  // namespace qv
