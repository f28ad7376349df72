#include "qvsata/recorded/HashIndex.h"

namespace qv::service {

void HashIndex::Add(const std::string& text, std::size_t place) {
    entries_.emplace(std::hash<std::string>{}(text), place);
}

std::vector<std::size_t> HashIndex::Find(const std::string& text) const {
    std::vector<std::size_t> places;
    FindFirst(text, [&places](std::size_t place) {
        places.push_back(place);
        return false;
    });
    return places;
}

}  // namespace qv::service
