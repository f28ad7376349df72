#include "source/KeyTable.h"

#include <algorithm>
#include <numeric>

namespace qv {
namespace {

constexpr auto none = static_cast<std::size_t>(-1);

}  // namespace

KeyTable::KeyTable(std::vector<std::string> texts) {
    Places order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {},
                             [&](std::size_t place) -> const std::string& { return texts[place]; });
    for (const std::size_t place : order) {
        if (entries_.empty() || entries_.back().text != texts[place]) {
            std::size_t beginning = entries_.empty() ? none : entries_.size() - 1;
            while (beginning != none && !texts[place].starts_with(entries_[beginning].text)) {
                beginning = entries_[beginning].beginning;
            }
            entries_.push_back({std::move(texts[place]), {}, beginning});
        }
        entries_.back().places.push_back(place);
    }
    for (const Entry& entry : entries_) {
        if (!entry.text.empty()) {
            firstBytes_[static_cast<unsigned char>(entry.text.front())] = true;
        }
    }
}

KeyTable::Places KeyTable::Equal(std::string_view text) const {
    Numbers found;
    CollectEqual(text, found);
    return PlacesOf(std::move(found));
}

KeyTable::Places KeyTable::EqualToAny(const std::vector<std::string>& texts) const {
    Numbers found;
    for (const std::string& text : texts) {
        CollectEqual(text, found);
    }
    return PlacesOf(std::move(found));
}

KeyTable::Places KeyTable::Beginnings(std::string_view text) const {
    Numbers found;
    CollectBeginnings(text, found);
    return PlacesOf(std::move(found));
}

KeyTable::Places KeyTable::Contained(std::string_view text) const {
    Numbers found;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (firstBytes_[static_cast<unsigned char>(text[at])]) {
            CollectBeginnings(text.substr(at), found);
        }
    }
    CollectBeginnings({}, found);
    return PlacesOf(std::move(found));
}

// Returns the index of the longest entry with which the text begins.
std::size_t KeyTable::LongestBeginning(std::string_view text) const {
    const auto behind = std::ranges::upper_bound(
        entries_, text, {}, [](const Entry& entry) -> std::string_view { return entry.text; });
    if (behind == entries_.begin()) {
        return none;
    }
    auto number = static_cast<std::size_t>(behind - entries_.begin()) - 1;
    while (number != none && !text.starts_with(entries_[number].text)) {
        number = entries_[number].beginning;
    }
    return number;
}

void KeyTable::CollectBeginnings(std::string_view text, Numbers& found) const {
    for (auto number = LongestBeginning(text); number != none;
         number = entries_[number].beginning) {
        found.push_back(number);
    }
}

void KeyTable::CollectEqual(std::string_view text, Numbers& found) const {
    const auto number = LongestBeginning(text);
    if (number != none && entries_[number].text.size() == text.size()) {
        found.push_back(number);
    }
}

KeyTable::Places KeyTable::PlacesOf(Numbers found) const {
    // An entry found several times counts once.
    std::ranges::sort(found);
    found.erase(std::unique(found.begin(), found.end()), found.end());
    Places places;
    for (const std::size_t number : found) {
        const Places& more = entries_[number].places;
        places.insert(places.end(), more.begin(), more.end());
    }
    if (found.size() > 1) {
        std::ranges::sort(places);
    }
    return places;
}

}  // namespace qv
