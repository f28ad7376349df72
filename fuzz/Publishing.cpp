#include "fuzz/Publishing.h"

#include <algorithm>
#include <initializer_list>
#include <map>

#include "catalogue/Associations.h"
#include "catalogue/Classes.h"
#include "fuzz/Oracle.h"
#include "nlohmann/json.hpp"
#include "qvsata/output/OutputJson.h"
#include "qvsata/view/AssociationGraph.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/TopologyGraph.h"
#include "qvsata/view/TopologyJson.h"
#include "qvsata/view/TopologyText.h"
#include "qvsata/view/text/Characters.h"
#include "tests/support/PlainPairing.h"
#include "tests/support/RecordedProvider.h"

namespace qv::fuzz {
namespace {

using test::RecordedProvider;
using Published = std::map<std::string_view, RecordList>;
using References = std::vector<std::vector<std::string>>;

Published Publish(const RecordedProvider& provider,
                  std::initializer_list<std::string_view> classes) {
    Published published;
    for (const std::string_view name : classes) {
        published.emplace(name, provider.All(name));
    }
    return published;
}

std::vector<std::string> KeysOf(const RecordList& records, std::string_view key) {
    std::vector<std::string> keys;
    for (const InstanceRecord& record : records) {
        keys.push_back(GetPropertyEntry(record, key).value);
    }
    return keys;
}

Partners PlainPartners(const Published& published, const AssociationEnd& first,
                       const AssociationEnd& second, MatchRule rule) {
    return test::PairPlainly(KeysOf(published.at(first.className), first.key),
                             KeysOf(published.at(second.className), second.key), rule);
}

References PlainReferences(const Published& published, const Association& association) {
    const auto path = [&published](const AssociationEnd& end, std::size_t place) {
        return BuildObjectPath(published.at(end.className)[place]);
    };
    const Partners seconds =
        PlainPartners(published, association.first, association.second, association.rule);
    const Partners thirds =
        association.HasThreeEnds()
            ? PlainPartners(published, association.second, association.third, association.thirdRule)
            : Partners();
    References references;
    for (std::size_t a = 0; a < seconds.size(); ++a) {
        for (const std::size_t b : seconds[a]) {
            if (!association.HasThreeEnds()) {
                references.push_back({path(association.first, a), path(association.second, b)});
                continue;
            }
            for (const std::size_t c : thirds[b]) {
                references.push_back({path(association.first, a), path(association.second, b),
                                      path(association.third, c)});
            }
        }
    }
    return references;
}

References ReferencesOf(const RecordList& records) {
    References references;
    for (const InstanceRecord& record : records) {
        auto& ends = references.emplace_back();
        for (const PropertyEntry& entry : record.properties) {
            if (entry.type == PropertyType::reference) {
                ends.push_back(entry.value);
            }
        }
    }
    return references;
}

service::CimValue AsCimValue(const PropertyEntry& entry) {
    TypedValue typed;
    Require(ToTypedValue(entry, typed), "every published property has a type");
    return std::visit(
        []<typename Value>(const Value& value) -> service::CimValue {
            if constexpr (std::is_same_v<Value, qv::Reference>) {
                return R"(\\SRV\root\QVQ:)" + value.path;
            } else if constexpr (std::is_same_v<Value, std::vector<std::int32_t>>) {
                return std::vector<std::int64_t>(value.begin(), value.end());
            } else if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>) {
                return std::int64_t{value};
            } else {
                return value;
            }
        },
        typed);
}

view::PublishedHost AsPublishedHost(const Published& published) {
    view::PublishedHost host;
    for (const auto& [className, records] : published) {
        auto& objects = host[std::string(className)];
        for (const InstanceRecord& record : records) {
            auto& object = objects.emplace_back();
            object.className = record.className;
            object.path = BuildObjectPath(record);
            for (const PropertyEntry& entry : record.properties) {
                service::CimValue value = AsCimValue(entry);
                if (entry.type == PropertyType::reference) {
                    object.references.emplace_back(entry.name, std::get<std::string>(value));
                }
                object.values[entry.name] = std::move(value);
            }
        }
    }
    return host;
}

void CheckPlainText(std::string_view text) {
    while (!text.empty()) {
        const view::Character character = view::FirstCharacter(text);
        Require(character.bytes == "\n" || !view::ControlsText(character),
                "text for people has no control characters");
        text.remove_prefix(character.bytes.size());
    }
}

void CheckJson(const nlohmann::ordered_json& content) {
    const std::string text = tool::DocumentText(content);
    CheckPlainText(text);
    auto read = nlohmann::ordered_json::parse(text);
    Require(read.erase("formatVersion") == 1, "a JSON document has its format version");
    Require(read == content, "a JSON document is read as the same");
}

void CheckPairs(const RecordedProvider& provider, const Association& association,
                const RecordList& records) {
    const Published ends = Publish(
        provider,
        {association.first.className, association.second.className, association.third.className});
    Require(ReferencesOf(records) == PlainReferences(ends, association),
            std::string(association.name) + " has the pairs that plain loops find");
}

void CheckClass(const RecordedProvider& provider, const PublishedClass& type, std::size_t chosen) {
    const RecordList records = provider.All(type.name);
    if (type.association != nullptr) {
        CheckPairs(provider, *type.association, records);
    }
    if (!records.empty()) {
        const InstanceRecord& record = records[chosen % records.size()];
        const RecordList found = provider.At(type.name, BuildObjectPath(record));
        Require(std::ranges::find(found, record) != found.end(),
                "an instance of " + std::string(type.name) + " is found by its path");
    }
}

}  // namespace

void CheckClass(const service::RecordedHost& host, std::size_t chosen) {
    const RecordedProvider provider(host);
    const auto classes = PublishedClasses();
    try {
        CheckClass(provider, classes[chosen % classes.size()], chosen / classes.size());
    } catch (const RequestError&) {
        // Some rows end a request, as the rules say.
        return;
    }
}

void CheckViews(const service::RecordedHost& host, std::size_t columns) {
    const RecordedProvider provider(host);
    Published all;
    try {
        for (const PublishedClass& type : PublishedClasses()) {
            all.emplace(type.name, provider.All(type.name));
        }
    } catch (const RequestError&) {
        return;
    }
    CheckViews(AsPublishedHost(all), columns);
}

void CheckViews(const view::PublishedHost& host, std::size_t columns) {
    const view::Topology topology = view::BuildTopology(host);
    CheckPlainText(view::PlainText(view::TopologyAsText(topology)));
    CheckPlainText(view::PlainText(view::TopologyAsText(topology, columns)));
    CheckPlainText(view::TopologyAsGraph(topology));
    CheckJson(view::TopologyAsJson(topology));
    std::vector<view::PublishedObject> objects;
    for (const auto& [className, instances] : host) {
        objects.insert(objects.end(), instances.begin(), instances.end());
    }
    CheckPlainText(view::AssociationGraph(objects));
}

}  // namespace qv::fuzz
