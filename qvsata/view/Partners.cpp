#include "qvsata/view/Partners.h"

#include <utility>

namespace qv::view {

Identities Partners(const PublishedHost& host, std::string_view association, std::string_view from,
                    std::string_view to) {
    Identities partners;
    for (const PublishedObject& link : InstancesOf(host, association)) {
        const std::string end = link.Referenced(from);
        std::string candidate = link.Referenced(to);
        if (end.empty() || candidate.empty()) {
            continue;
        }
        if (std::string& partner = partners[end]; candidate.size() > partner.size()) {
            partner = std::move(candidate);
        }
    }
    return partners;
}

Identities Inverted(const Identities& partners) {
    Identities inverted;
    for (const auto& [from, to] : partners) {
        inverted[to] = from;
    }
    return inverted;
}

std::string Lookup(const Identities& partners, const std::string& identity) {
    const auto found = partners.find(identity);
    return found == partners.end() ? std::string() : found->second;
}

}  // namespace qv::view
