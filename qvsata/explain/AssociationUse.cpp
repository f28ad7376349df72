#include "qvsata/explain/AssociationUse.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "NativeAPI/KeyPairing.h"
#include "catalogue/Associations.h"
#include "qvsata/explain/Explain.h"
#include "qvsata/explain/JoinLimit.h"

namespace qv::explain {
namespace {

std::vector<std::string> KeysOf(const view::PublishedHost& published, const AssociationEnd& end) {
    std::vector<std::string> keys;
    for (const view::PublishedObject& object : view::InstancesOf(published, end.className)) {
        keys.push_back(object.Text(end.key));
    }
    return keys;
}

}  // namespace

std::vector<ExplainedClass> ExplainedClasses() {
    std::vector<ExplainedClass> classes;
    for (const Association& association : associations) {
        for (const AssociationEnd& end : association.Ends()) {
            auto one = std::ranges::find(classes, end.className, &ExplainedClass::name);
            if (one == classes.end()) {
                one = classes.insert(one, {end.className});
            }
            if (std::ranges::count(one->properties, end.key) == 0) {
                one->properties.push_back(end.key);
            }
        }
    }
    return classes;
}

AssociationUse::AssociationUse(const view::PublishedHost& published, std::size_t mostPairs) {
    for (const Association& association : associations) {
        Use use{association.name, {}};
        std::vector<std::vector<std::string>> keys;
        for (const AssociationEnd& end : association.Ends()) {
            if (published.contains(end.className)) {
                keys.push_back(KeysOf(published, end));
                use.takesPart[end.className].resize(keys.back().size());
            }
        }
        if (keys.size() != association.Ends().size()) {
            continue;
        }
        const auto pair = [&](std::size_t first, MatchRule rule) {
            auto partners = PairKeysUpTo(mostPairs, keys[first], keys[first + 1], rule);
            if (!partners) {
                throw TooManyJoins(std::string(association.name) + " joins", mostPairs, " pairs");
            }
            return *std::move(partners);
        };
        const Partners seconds = pair(0, association.rule);
        const Partners thirds =
            association.HasThreeEnds() ? pair(1, association.thirdRule) : Partners(keys[1].size());
        for (std::size_t first = 0; first < seconds.size(); ++first) {
            for (const std::size_t second : seconds[first]) {
                if (association.HasThreeEnds() && thirds[second].empty()) {
                    continue;
                }
                use.takesPart[association.first.className][first] = true;
                use.takesPart[association.second.className][second] = true;
                for (const std::size_t third : thirds[second]) {
                    use.takesPart[association.third.className][third] = true;
                }
            }
        }
        uses_.push_back(std::move(use));
    }
}

std::vector<std::string_view> AssociationUse::EmptyFor(const Verdict& verdict) const {
    std::vector<std::string_view> empty;
    for (const Use& use : uses_) {
        bool hasEnd = false;
        bool takesPart = false;
        for (const PublishedAs& instance : verdict.instances) {
            const auto end = use.takesPart.find(instance.className);
            if (end != use.takesPart.end()) {
                hasEnd = true;
                takesPart = takesPart ||
                            (instance.place < end->second.size() && end->second[instance.place]);
            }
        }
        if (hasEnd && !takesPart) {
            empty.push_back(use.association);
        }
    }
    return empty;
}

}  // namespace qv::explain
