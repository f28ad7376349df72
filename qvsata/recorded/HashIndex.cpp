#include "qvsata/recorded/HashIndex.h"

#include <functional>

namespace qv::service {

void HashIndex::Add(const std::string& text, std::size_t place) {
    entries_.emplace(std::hash<std::string>{}(text), place);
}

std::vector<std::size_t> HashIndex::Find(const std::string& text) const {
    const std::size_t hash = std::hash<std::string>{}(text);
    std::vector<std::size_t> places;
    for (auto entry = entries_.lower_bound({hash, 0});
         entry != entries_.end() && entry->first == hash; ++entry) {
        places.push_back(entry->second);
    }
    return places;
}

}  // namespace qv::service
