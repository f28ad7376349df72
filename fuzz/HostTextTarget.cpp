#include "fuzz/Oracle.h"
#include "fuzz/Publishing.h"
#include "nlohmann/json.hpp"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputText.h"
#include "qvsata/recorded/HostFile.h"
#include "qvsata/recorded/HostText.h"
#include "qvsata/recorded/TextFile.h"
#include "qvsata/service/RecordedMachine.h"

namespace qv::fuzz {
namespace {

using namespace service;
using Json = nlohmann::ordered_json;

Json AsJson(const CimValue& value) {
    return std::visit(
        []<typename Value>(const Value& held) -> Json {
            if constexpr (std::is_same_v<Value, std::monostate>) {
                return nullptr;
            } else {
                return held;
            }
        },
        value);
}

Json AsJson(const RecordedClass& recorded) {
    if (recorded.Failure()) {
        const std::string name = StatusName(*recorded.Failure());
        return {{"fails", name.substr(0, name.find(' '))}};
    }
    Json rows = Json::array();
    for (const RecordedRow& row : recorded.Rows()) {
        Json members = Json::object();
        for (const auto& [name, value] : row.Properties()) {
            members[name] = AsJson(value);
        }
        rows.push_back(std::move(members));
    }
    return rows;
}

std::string AsText(const RecordedHost& host) {
    Json namespaces = Json::object();
    for (const RecordedNamespace& one : host.Namespaces()) {
        Json& classes = namespaces[one.Name()] = Json::object();
        for (const RecordedClass& recorded : one.Classes()) {
            classes[recorded.Name()] = AsJson(recorded);
        }
    }
    const ComputerNames& names = host.Computer();
    return Json{
        {"description", host.Description()},
        {"computer",
         {{"server", names.server},
          {"dnsFullyQualified", names.dnsFullyQualified},
          {"dnsHostname", names.dnsHostname},
          {"netbios", names.netbios}}},
        {"system", {{"osVersion", host.System().osVersion}, {"codePage", host.System().codePage}}},
        {"namespaces", std::move(namespaces)}}
        .dump();
}

// Returns the number of rows.
std::size_t CheckAnswers(const RecordedHost& host) {
    const auto shared = std::make_shared<const RecordedHost>(host);
    std::size_t rows = 0;
    for (const RecordedNamespace& one : host.Namespaces()) {
        const auto opened = OpenRecorded(shared, one.Name());
        for (const RecordedClass& recorded : one.Classes()) {
            const Answer answer = opened->Enumerate(recorded.Name());
            Require(answer.objects.size() == recorded.Rows().size(),
                    "a class is enumerated with all its rows");
            rows += recorded.Rows().size();
            const Json document = tool::ObjectsAsJson(answer.objects);
            Require(Json::parse(tool::DocumentText({{"objects", document}}))["objects"] == document,
                    "objects in JSON are read as the same");
            tool::ObjectsAsText(answer.objects);
        }
    }
    return rows;
}

}  // namespace

void RunHostText(Bytes input) {
    std::optional<RecordedHost> host;
    try {
        host = ReadHostText(TextOfBytes(std::string(TextOf(input)), "host.json"), "host.json");
    } catch (const HostFileError& error) {
        const std::string_view message = error.what();
        Require(message.starts_with("host.json: ") && message.find('\n') == std::string_view::npos,
                "the error is one line that names the file");
        return;
    }
    const std::string text = AsText(*host);
    for (const std::string& written : {text, HostAsText(*host)}) {
        Require(AsText(ReadHostText(written, "written.json")) == text,
                "a host that is written is read as the same");
    }
    // The associations of many equal rows are many, which is no fault.
    if (CheckAnswers(*host) <= 40) {
        CheckClass(*host, input.size());
        CheckViews(*host, input.size() % 200);
    }
}

}  // namespace qv::fuzz
