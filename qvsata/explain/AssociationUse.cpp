#include "qvsata/explain/AssociationUse.h"

#include <algorithm>
#include <string>

#include "catalogue/Associations.h"
#include "qvsata/explain/Explain.h"

namespace qv::explain {
namespace {

std::vector<AssociationEnd> EndsOf(const Association& association) {
    std::vector<AssociationEnd> ends{association.first, association.second};
    if (association.HasThreeEnds()) {
        ends.push_back(association.third);
    }
    return ends;
}

std::vector<std::string> KeysOf(const view::PublishedHost& published, const AssociationEnd& end) {
    std::vector<std::string> keys;
    for (const view::PublishedObject& object : view::InstancesOf(published, end.className)) {
        keys.push_back(object.Text(end.key));
    }
    return keys;
}

}  // namespace

std::vector<std::string_view> ExplainedClasses() {
    std::vector<std::string_view> classes;
    for (const Association& association : associations) {
        for (const AssociationEnd& end : EndsOf(association)) {
            if (std::ranges::find(classes, end.className) == classes.end()) {
                classes.push_back(end.className);
            }
        }
    }
    return classes;
}

AssociationUse::AssociationUse(const view::PublishedHost& published) : published_(published) {
    for (const Association& association : associations) {
        const auto firsts = KeysOf(published, association.first);
        const auto seconds = KeysOf(published, association.second);
        const auto thirds = KeysOf(published, association.third);
        const auto add = [&](const AssociationEnd& end, std::size_t place) {
            parts_.emplace(association.name, end.className, place);
        };
        const auto addThirds = [&](std::size_t second) {
            bool isAny = false;
            for (std::size_t third = 0; third < thirds.size(); ++third) {
                if (MatchKeyValues(seconds[second], thirds[third], association.thirdRule)) {
                    add(association.third, third);
                    isAny = true;
                }
            }
            return isAny;
        };
        for (std::size_t first = 0; first < firsts.size(); ++first) {
            for (std::size_t second = 0; second < seconds.size(); ++second) {
                if (MatchKeyValues(firsts[first], seconds[second], association.rule) &&
                    (!association.HasThreeEnds() || addThirds(second))) {
                    add(association.first, first);
                    add(association.second, second);
                }
            }
        }
    }
}

std::vector<std::string_view> AssociationUse::EmptyFor(const Verdict& verdict) const {
    std::vector<std::string_view> empty;
    for (const Association& association : associations) {
        const auto ends = EndsOf(association);
        const bool isRead = std::ranges::all_of(
            ends, [this](const AssociationEnd& end) { return published_.contains(end.className); });
        bool hasEnd = false;
        bool takesPart = false;
        for (const PublishedAs& instance : verdict.instances) {
            hasEnd = hasEnd ||
                     std::ranges::count(ends, instance.className, &AssociationEnd::className) != 0;
            takesPart = takesPart ||
                        parts_.contains({association.name, instance.className, instance.place});
        }
        if (isRead && hasEnd && !takesPart) {
            empty.push_back(association.name);
        }
    }
    return empty;
}

}  // namespace qv::explain
