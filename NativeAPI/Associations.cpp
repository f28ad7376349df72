// The associations: one instance per pair (or triple) of endpoints whose keys match, with a
// reference to each of them as its keys.
#include <algorithm>
#include <initializer_list>
#include <span>

#include "NativeAPI/KeyPairing.h"
#include "NativeAPI/NativeAPI.h"
#include "source/Text.h"

namespace qv {
namespace {

// Returns whether the endpoint of the filter can be one of these ends, and the result class of the
// filter another one.
bool MayRelate(const ClassCatalogue& classes, const EndpointFilter& filter,
               std::initializer_list<AssociationEnd> ends) {
    const auto mayBeNamed = [&filter](const AssociationEnd& end) {
        return (!filter.NamesEndpoint() ||
                EqualsIgnoringCase(end.className, filter.ClassOfPath())) &&
               (filter.role.empty() || EqualsIgnoringCase(end.role, filter.role));
    };
    const auto mayBeResult = [&classes, &filter](const AssociationEnd& end) {
        return filter.resultClass.empty() || classes.IsOfClass(end.className, filter.resultClass);
    };
    return std::ranges::any_of(ends, [&](const AssociationEnd& named) {
        return mayBeNamed(named) && std::ranges::any_of(ends, [&](const AssociationEnd& result) {
                   return result.role != named.role && mayBeResult(result);
               });
    });
}

// What pairing needs of the instances of one end, read once per instance. The instances themselves
// are large and are not kept.
struct Endpoints {
    Endpoints(const RecordList& records, const AssociationEnd& end, const EndpointFilter& filter,
              std::string_view furtherKey = {})
        : role(end.role) {
        for (const InstanceRecord& record : records) {
            keys.push_back(GetPropertyEntry(record, end.key).value);
            furtherKeys.push_back(GetPropertyEntry(record, furtherKey).value);
            paths.push_back(BuildObjectPath(record));
            asked.push_back(!filter.NamesEndpoint() ||
                            EqualsIgnoringCase(paths.back(), filter.path));
        }
    }

    std::string_view role;
    std::vector<std::string> keys;
    std::vector<std::string> furtherKeys;
    std::vector<std::string> paths;
    std::vector<bool> asked;  // named by the filter, or the filter names none
};

struct Endpoint {
    const Endpoints& end;
    std::size_t place;
};

// Appends the association of these endpoints, unless the request asks for others.
void Associate(RecordList& records, const Request& request,
               std::initializer_list<Endpoint> endpoints) {
    if (std::ranges::none_of(endpoints,
                             [](const Endpoint& one) { return one.end.asked[one.place]; })) {
        return;
    }
    InstanceRecord record(request.className);
    record.properties.reserve(endpoints.size() + 1);
    for (const Endpoint& one : endpoints) {
        SetKeyReference(record, one.end.role, one.end.paths[one.place]);
    }
    if (request.Accepts(record)) {
        AppendRecord(records, std::move(record));
    }
}

// Drops the pairs whose further keys do not match.
void Restrict(Partners& partners, const Endpoints& first, const Endpoints& second,
              MatchRule furtherRule) {
    for (std::size_t a = 0; a < partners.size(); ++a) {
        std::erase_if(partners[a], [&](std::size_t b) {
            return !MatchKeyValues(first.furtherKeys[a], second.furtherKeys[b], furtherRule);
        });
    }
}

// Returns the partners of the first keys that are wanted; all others have none.
Partners PairWanted(const std::vector<bool>& wanted, const Endpoints& first,
                    const Endpoints& second, MatchRule rule) {
    std::vector<std::size_t> places;
    std::vector<std::string> keys;
    for (std::size_t place = 0; place < wanted.size(); ++place) {
        if (wanted[place]) {
            places.push_back(place);
            keys.push_back(first.keys[place]);
        }
    }
    Partners partners(wanted.size());
    if (places.empty()) {
        return partners;
    }
    Partners found = PairKeys(keys, second.keys, rule);
    for (std::size_t number = 0; number < places.size(); ++number) {
        partners[places[number]] = std::move(found[number]);
    }
    return partners;
}

}  // namespace

RecordList NativeAPI::BuildAssociationPairs(const Request& request, const AssociationEnd& firstEnd,
                                            const AssociationEnd& secondEnd, MatchRule rule,
                                            const FurtherCondition& condition) const {
    RecordList records;
    if (!MayRelate(classes_, request.endpoint, {firstEnd, secondEnd})) {
        return records;
    }
    const Endpoints first(BuildAllInstances(firstEnd.className, mode::keysOnly), firstEnd,
                          request.endpoint, condition.firstKey);
    const Endpoints second(BuildAllInstances(secondEnd.className, mode::keysOnly), secondEnd,
                           request.endpoint, condition.secondKey);
    Partners partners = PairKeys(first.keys, second.keys, rule);
    Restrict(partners, first, second, condition.rule);
    for (std::size_t a = 0; a < partners.size(); ++a) {
        for (const std::size_t b : partners[a]) {
            Associate(records, request, {{first, a}, {second, b}});
        }
    }
    return records;
}

RecordList NativeAPI::BuildAssociationTriples(const Request& request,
                                              const AssociationEnd& firstEnd,
                                              const AssociationEnd& secondEnd,
                                              const AssociationEnd& thirdEnd, MatchRule firstRule,
                                              MatchRule secondRule) const {
    RecordList records;
    if (!MayRelate(classes_, request.endpoint, {firstEnd, secondEnd, thirdEnd})) {
        return records;
    }
    const Endpoints first(BuildAllInstances(firstEnd.className, mode::keysOnly), firstEnd,
                          request.endpoint);
    const Endpoints second(BuildAllInstances(secondEnd.className, mode::keysOnly), secondEnd,
                           request.endpoint);
    const Endpoints third(BuildAllInstances(thirdEnd.className, mode::keysOnly), thirdEnd,
                          request.endpoint);
    const Partners seconds = PairKeys(first.keys, second.keys, firstRule);
    std::vector<bool> paired(second.keys.size());
    for (const auto& places : seconds) {
        for (const std::size_t place : places) {
            paired[place] = true;
        }
    }
    const Partners thirds = PairWanted(paired, second, third, secondRule);
    for (std::size_t a = 0; a < seconds.size(); ++a) {
        for (const std::size_t b : seconds[a]) {
            for (const std::size_t c : thirds[b]) {
                Associate(records, request, {{first, a}, {second, b}, {third, c}});
            }
        }
    }
    return records;
}

RecordList NativeAPI::getAssociation(const Association& association, const Request& request) const {
    RecordList records =
        association.HasThreeEnds()
            ? BuildAssociationTriples(request, association.first, association.second,
                                      association.third, association.rule, association.thirdRule)
            : BuildAssociationPairs(request, association.first, association.second,
                                    association.rule);
    if (!association.added.name.empty()) {
        for (InstanceRecord& record : records) {
            SetProperty(record, association.added.name, std::string(association.added.value),
                        association.added.type);
        }
    }
    return records;
}

}  // namespace qv
