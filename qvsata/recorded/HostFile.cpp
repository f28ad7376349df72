#include "qvsata/recorded/HostFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/recorded/TextFile.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using Json = nlohmann::ordered_json;

// The place of a value: FILE: namespaces."root\\CIMv2".Win32_DiskDrive[3].Size
class Place {
public:
    explicit Place(std::string_view file) : text_(std::string(file) + ": ") {}

    Place Member(const std::string& name) const {
        const bool isPlain =
            !name.empty() && name.find_first_not_of(
                                 "abcdefghijklmnopqrstuvwxyz"
                                 "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string::npos;
        Place member = *this;
        member.text_.append(isTop_ ? "" : ".").append(isPlain ? name : Json(name).dump());
        member.isTop_ = false;
        return member;
    }

    Place Element(std::size_t index) const {
        Place element = *this;
        element.text_.append("[").append(std::to_string(index)).append("]");
        return element;
    }

    [[noreturn]] void Fail(const std::string& reason) const {
        throw HostFileError(isTop_ ? text_ + reason : text_ + ": " + reason);
    }

private:
    std::string text_;
    bool isTop_ = true;
};

// Names that differ only in case would hide each other, and of two equal names the parser silently
// keeps the last.
class DuplicateCheck {
public:
    explicit DuplicateCheck(const Place& top) : top_(top) {}

    void operator()(Json::parse_event_t event, const Json& parsed) {
        if (event == Json::parse_event_t::object_start) {
            names_.emplace_back();
        } else if (event == Json::parse_event_t::object_end) {
            names_.pop_back();
        } else if (event == Json::parse_event_t::key) {
            const auto& name = parsed.get_ref<const std::string&>();
            if (!names_.back().insert(FoldCase(name)).second) {
                top_.Fail(Json(name).dump() + " stands twice in one object");
            }
        }
    }

private:
    const Place& top_;
    std::vector<std::set<std::string>> names_;
};

// Returns the parser's message without its error number and without a copy of the input.
std::string SyntaxReason(std::string_view what, std::string_view json, std::size_t byte) {
    const std::string_view before = json.substr(0, byte == 0 ? 0 : byte - 1);
    const auto line = 1 + std::ranges::count(before, '\n');
    const std::size_t lineStart = before.find_last_of('\n');
    const std::size_t column =
        before.size() - (lineStart == std::string_view::npos ? 0 : lineStart + 1) + 1;
    const std::size_t detail = what.find(": ", what.find("column"));
    what = what.substr(0, what.find("; last read"));
    std::string reason =
        "line " + std::to_string(line) + ", column " + std::to_string(column) + ": not JSON";
    if (detail != std::string_view::npos) {
        reason.append(": ").append(what.substr(detail + 2));
    }
    return reason;
}

Json ParseJson(std::string_view text, const Place& top) {
    DuplicateCheck check(top);
    try {
        return Json::parse(text, [&check](int, Json::parse_event_t event, Json& parsed) {
            check(event, parsed);
            return true;
        });
    } catch (const Json::parse_error& error) {
        top.Fail(SyntaxReason(error.what(), text, error.byte));
    } catch (const Json::out_of_range&) {
        top.Fail("a number beyond all bounds");
    }
}

std::int64_t ToNumber(const Json& json, const Place& place) {
    using Limits = std::numeric_limits<std::int32_t>;
    // Also matches whole numbers of any length: the parser stores those beyond 64 bits as real
    // numbers.
    const auto number = json.get<double>();
    const bool fits = number >= Limits::min() && number <= Limits::max();
    if (fits && json.is_number_float()) {
        place.Fail("a number with a fraction");
    }
    if (!fits) {
        place.Fail("a number beyond 32 bits; 64-bit numbers are written as text");
    }
    return json.get<std::int64_t>();
}

CimValue ToArray(const Json& json, const Place& place) {
    const bool isText = !json.empty() && json.front().is_string();
    std::vector<std::string> texts;
    std::vector<std::int64_t> numbers;
    for (std::size_t i = 0; i < json.size(); ++i) {
        if (!json[i].is_number() && !json[i].is_string()) {
            place.Element(i).Fail("an array holds numbers or texts");
        }
        if (json[i].is_string() != isText) {
            place.Element(i).Fail("an array of both numbers and texts");
        }
        if (isText) {
            texts.push_back(json[i].get<std::string>());
        } else {
            numbers.push_back(ToNumber(json[i], place.Element(i)));
        }
    }
    return isText ? CimValue(std::move(texts)) : CimValue(std::move(numbers));
}

CimValue ToValue(const Json& json, const Place& place) {
    switch (json.type()) {
        case Json::value_t::null:
            return {};
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::string:
            return json.get<std::string>();
        case Json::value_t::array:
            return ToArray(json, place);
        case Json::value_t::object:
            place.Fail("an object is no value of a property");
        default:
            return ToNumber(json, place);
    }
}

const Json& RequireObject(const Json& json, const Place& place) {
    if (!json.is_object()) {
        place.Fail("expected an object");
    }
    return json;
}

const Json& RequireMember(const Json& json, const std::string& name, const Place& place) {
    const auto found = json.find(name);
    if (found == json.end()) {
        place.Member(name).Fail("missing");
    }
    return RequireObject(*found, place.Member(name));
}

// A text that may be missing or null.
std::string OptionalText(const Json& json, const std::string& name, const Place& place) {
    const auto found = json.find(name);
    if (found == json.end() || found->is_null()) {
        return {};
    }
    if (!found->is_string()) {
        place.Member(name).Fail("expected a text");
    }
    return found->get<std::string>();
}

RowProperties ToRow(const Json& json, const Place& place) {
    RowProperties row;
    for (const auto& property : RequireObject(json, place).items()) {
        row.emplace_back(property.key(), ToValue(property.value(), place.Member(property.key())));
    }
    return row;
}

constexpr const char* noRows = "expected a list of rows or {\"fails\": true}";

// The status of a class whose queries fail: true stands for WBEM_E_FAILED.
Status ToFailure(const Json& json, const Place& place) {
    if (json.size() != 1 || !json.contains("fails")) {
        place.Fail(noRows);
    }
    const Json& reason = json["fails"];
    if (reason == true) {
        return Status::failed;
    }
    const auto status = reason.is_string() ? StatusOfName(reason.get<std::string>()) : std::nullopt;
    if (!status) {
        place.Member("fails").Fail(
            "expected true or the name of a status like \"WBEM_E_ACCESS_DENIED\", or its number");
    }
    return *status;
}

void AddClass(RecordedHost& host, const std::string& nameSpace, const std::string& className,
              const Json& json, const Place& place) {
    if (json.is_object()) {
        host.FailClass(nameSpace, className, ToFailure(json, place));
        return;
    }
    if (!json.is_array()) {
        place.Fail(noRows);
    }
    host.DefineClass(nameSpace, className);
    for (std::size_t i = 0; i < json.size(); ++i) {
        host.AddRow(nameSpace, className, ToRow(json[i], place.Element(i)));
    }
}

void AddNamespace(RecordedHost& host, const std::string& nameSpace, const Json& json,
                  const Place& place) {
    if (host.FindNamespace(nameSpace) != nullptr) {
        place.Fail("the namespace is given twice");
    }
    host.DefineNamespace(nameSpace);
    for (const auto& entry : RequireObject(json, place).items()) {
        AddClass(host, nameSpace, entry.key(), entry.value(), place.Member(entry.key()));
    }
}

RecordedSystem ToSystem(const Json& root, const Place& top) {
    if (!root.contains("system")) {
        return {};
    }
    const Place place = top.Member("system");
    const Json& system = RequireObject(root["system"], place);
    const auto codePage = system.find("codePage");
    const bool hasCodePage = codePage != system.end() && !codePage->is_null();
    if (hasCodePage && !codePage->is_number_unsigned()) {
        place.Member("codePage").Fail("expected the number of a code page");
    }
    return {OptionalText(system, "osVersion", place), hasCodePage ? codePage->get<unsigned>() : 0};
}

}  // namespace

RecordedHost ReadHostText(std::string_view json, std::string_view name) {
    const Place top(name);
    const Json root = ParseJson(json, top);
    RequireObject(root, top);
    const Json& computer = RequireMember(root, "computer", top);
    const Place names = top.Member("computer");
    RecordedHost host(
        {OptionalText(computer, "server", names),
         OptionalText(computer, "dnsFullyQualified", names),
         OptionalText(computer, "dnsHostname", names), OptionalText(computer, "netbios", names)},
        OptionalText(root, "description", top), ToSystem(root, top));
    const Place namespaces = top.Member("namespaces");
    for (const auto& entry : RequireMember(root, "namespaces", top).items()) {
        AddNamespace(host, entry.key(), entry.value(), namespaces.Member(entry.key()));
    }
    return host;
}

RecordedHost ReadHostFile(const std::filesystem::path& file) {
    const std::u8string utf8 = file.u8string();
    const std::string name(utf8.begin(), utf8.end());
    return ReadHostText(ReadTextFile(file, name), name);
}

}  // namespace qv::service
