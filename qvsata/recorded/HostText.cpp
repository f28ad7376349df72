#include "qvsata/recorded/HostText.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <type_traits>
#include <vector>

#include "qvsata/cim/StatusCodes.h"

namespace qv::service {
namespace {

using Json = nlohmann::ordered_json;

std::string Dumped(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Returns a value in JSON; nothing for one that the form lacks.
std::optional<Json> ValueAsJson(const CimValue& value) {
    return std::visit(
        [](const auto& held) -> std::optional<Json> {
            using T = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<T, std::monostate>) {
                return Json();
            } else if constexpr (std::is_same_v<T, std::int64_t>) {
                return static_cast<std::int32_t>(held);
            } else if constexpr (std::is_same_v<T, std::vector<std::int64_t>>) {
                Json numbers = Json::array();
                for (const std::int64_t number : held) {
                    numbers.push_back(static_cast<std::int32_t>(number));
                }
                return numbers;
            } else if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::string> ||
                                 std::is_same_v<T, std::vector<std::string>>) {
                return Json(held);
            } else {
                return std::nullopt;
            }
        },
        value);
}

Json RowAsJson(const RecordedRow& row) {
    Json json = Json::object();
    for (const auto& [name, value] : row.Properties()) {
        if (std::optional<Json> written = ValueAsJson(value)) {
            json[name] = *std::move(written);
        }
    }
    return json;
}

Json ClassAsJson(const RecordedClass& recorded) {
    if (recorded.Failure()) {
        return {{"fails", StatusSymbol(*recorded.Failure())}};
    }
    Json rows = Json::array();
    for (const RecordedRow& row : recorded.Rows()) {
        rows.push_back(RowAsJson(row));
    }
    return rows;
}

/// Returns the members of an object in a line each, each written by write(member).
template <typename Members, typename Write>
std::string Lines(const Members& members, const std::string& indent, char open, char close,
                  Write write) {
    std::string text;
    for (const auto& member : members) {
        text += (text.empty() ? "\n" : ",\n") + indent + write(member);
    }
    return open + (text.empty() ? text : text + '\n' + indent.substr(1)) + close;
}

std::string ClassAsText(const RecordedClass& recorded) {
    const Json json = ClassAsJson(recorded);
    return Dumped(recorded.Name()) + ": " +
           (json.is_object() ? Dumped(json) : Lines(json, "   ", '[', ']', Dumped));
}

std::string NamespaceAsText(const RecordedNamespace& nameSpace) {
    return Dumped(nameSpace.Name()) + ": " +
           Lines(nameSpace.Classes(), "  ", '{', '}', ClassAsText);
}

Json SystemAsJson(const RecordedSystem& system) {
    Json json = Json::object();
    if (!system.osVersion.empty()) {
        json["osVersion"] = system.osVersion;
    }
    if (system.codePage != 0) {
        json["codePage"] = system.codePage;
    }
    return json;
}

}  // namespace

std::string HostAsText(const RecordedHost& host) {
    const ComputerNames& names = host.Computer();
    Json computer = Json::object();
    for (const auto& [member, name] : {std::pair{"server", &names.server},
                                       {"dnsFullyQualified", &names.dnsFullyQualified},
                                       {"dnsHostname", &names.dnsHostname},
                                       {"netbios", &names.netbios}}) {
        if (!name->empty()) {
            computer[member] = *name;
        }
    }
    return "{\n \"description\": " + Dumped(host.Description()) +
           ",\n \"computer\": " + Dumped(computer) +
           ",\n \"system\": " + Dumped(SystemAsJson(host.System())) +
           ",\n \"namespaces\": " + Lines(host.Namespaces(), " ", '{', '}', NamespaceAsText) +
           "\n}\n";
}

}  // namespace qv::service
