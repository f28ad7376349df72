#include "qvsata/recorded/HostFile.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/cim/Utf8.h"
#include "qvsata/recorded/JsonText.h"
#include "qvsata/recorded/TextFile.h"

namespace qv::service {
namespace {

using Json = nlohmann::ordered_json;

// The place of a value: FILE: namespaces."root\\CIMv2".Win32_DiskDrive[3].Size. It refers to the
// place around it and to its name; its text is made for a message only.
class Place {
public:
    explicit Place(std::string_view file) : name_(file) {}

    Place Member(std::string_view name) const { return {*this, name, std::nullopt}; }
    Place Element(std::size_t index) const { return {*this, {}, index}; }

    [[noreturn]] void Fail(const std::string& reason) const {
        throw HostFileError(Text() + (around_ == nullptr ? "" : ": ") + reason);
    }

private:
    Place(const Place& around, std::string_view name, std::optional<std::size_t> index)
        : around_(&around), name_(name), index_(index) {}

    std::string Text() const {
        if (around_ == nullptr) {
            return std::string(name_) + ": ";
        }
        std::string text = around_->Text();
        if (index_) {
            return text.append("[").append(std::to_string(*index_)).append("]");
        }
        const bool isPlain = !name_.empty() &&
                             name_.find_first_not_of(
                                 "abcdefghijklmnopqrstuvwxyz"
                                 "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string_view::npos;
        text.append(around_->around_ == nullptr ? "" : ".");
        return text.append(isPlain ? std::string(name_) : Json(name_).dump());
    }

    const Place* around_ = nullptr;  ///< null: the whole file
    std::string_view name_;
    std::optional<std::size_t> index_;
};

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

CimValue ToArray(Json& json, const Place& place) {
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
            texts.push_back(std::move(json[i].get_ref<std::string&>()));
        } else {
            numbers.push_back(ToNumber(json[i], place.Element(i)));
        }
    }
    return isText ? CimValue(std::move(texts)) : CimValue(std::move(numbers));
}

// Takes texts out of the document: they may be most of a large recording.
CimValue ToValue(Json& json, const Place& place) {
    switch (json.type()) {
        case Json::value_t::null:
            return {};
        case Json::value_t::boolean:
            return json.get<bool>();
        case Json::value_t::string:
            return std::move(json.get_ref<std::string&>());
        case Json::value_t::array:
            return ToArray(json, place);
        case Json::value_t::object:
            place.Fail("an object is no value of a property");
        default:
            return ToNumber(json, place);
    }
}

Json& RequireObject(Json& json, const Place& place) {
    if (!json.is_object()) {
        place.Fail("expected an object");
    }
    return json;
}

Json& RequireMember(Json& json, const std::string& name, const Place& place) {
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

// A name of the computer, which is in each instance.
std::string ComputerName(const Json& computer, const std::string& name, const Place& place) {
    constexpr std::ptrdiff_t mostCharacters = 255;
    std::string text = OptionalText(computer, name, place);
    const auto characters = std::ranges::count_if(text, [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;  // the first of a character
    });
    if (characters > mostCharacters) {
        place.Member(name).Fail("a name of more than 255 characters");
    }
    return text;
}

RowProperties ToRow(Json& json, const Place& place) {
    auto& properties = RequireObject(json, place).get_ref<Json::object_t&>();
    RowProperties row;
    row.reserve(properties.size());
    for (auto& [name, value] : properties) {
        row.emplace_back(name, ToValue(value, place.Member(name)));
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

/// Adds the namespaces of a document to a host while the document is parsed, row by row: a
/// recording is nearly all rows.
class NamespaceReader {
public:
    explicit NamespaceReader(std::string_view file) : top_(file) {}

    /// Takes the rows, classes and namespaces.
    bool Take(std::span<const JsonLevel> levels, Json& value) {
        // A row is in the document, "namespaces", its namespace and the list of its class.
        static constexpr std::array isArray{false, false, false, true};
        if (levels.size() < 2 || levels.size() > isArray.size() ||
            !std::ranges::equal(levels, std::span(isArray).first(levels.size()), {},
                                &JsonLevel::IsArray) ||
            levels[0].Name() != "namespaces") {
            return false;
        }
        const Place place = namespaces_.Member(levels[1].Name());
        Enter(levels[1], place);
        if (levels.size() == 2) {
            RequireObject(value, place);
        } else if (levels.size() == 3) {
            AddClass(levels, value, place.Member(levels[2].Name()));
        } else {
            AddRow(levels, value, place.Member(levels[2].Name()));
        }
        return true;
    }

    /// Returns a host with the namespaces, but without names.
    RecordedHost TakeHost() { return std::move(host_); }

private:
    /// Defines the namespace at the first value inside it.
    void Enter(const JsonLevel& namespaces, const Place& place) {
        if (host_.Namespaces().size() > namespaces.place) {
            return;
        }
        if (host_.FindNamespace(namespaces.Name()) != nullptr) {
            place.Fail("the namespace is given twice");
        }
        host_.DefineNamespace(namespaces.Name());
    }

    void AddClass(std::span<const JsonLevel> levels, const Json& json, const Place& place) {
        if (json.is_object()) {
            host_.FailClass(levels[1].Name(), levels[2].Name(), ToFailure(json, place));
        } else if (json.is_array()) {
            host_.DefineClass(levels[1].Name(), levels[2].Name());
        } else {
            place.Fail(noRows);
        }
    }

    void AddRow(std::span<const JsonLevel> levels, Json& json, const Place& place) {
        if (levels[3].place == 0) {
            class_ = &host_.DefineClass(levels[1].Name(), levels[2].Name());
        }
        RowProperties row = ToRow(json, place.Element(levels[3].place));
        json = nullptr;  // frees it before the row is added
        class_->Add(std::move(row));
    }

    const Place top_;
    const Place namespaces_ = top_.Member("namespaces");
    RecordedHost host_;
    RecordedClass* class_ = nullptr;  ///< of the row before
};

RecordedSystem ToSystem(Json& root, const Place& top) {
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
    NamespaceReader reader(name);
    Json root = ParseJson(json, std::string(name),
                          [&reader](std::span<const JsonLevel> levels, Json& value) {
                              return reader.Take(levels, value);
                          });
    RequireObject(root, top);
    const Json& computer = RequireMember(root, "computer", top);
    const Place names = top.Member("computer");
    RequireMember(root, "namespaces", top);
    RecordedHost host(
        {ComputerName(computer, "server", names),
         ComputerName(computer, "dnsFullyQualified", names),
         ComputerName(computer, "dnsHostname", names), ComputerName(computer, "netbios", names)},
        OptionalText(root, "description", top), ToSystem(root, top));
    host.TakeNamespaces(reader.TakeHost());
    return host;
}

RecordedHost ReadHostFile(const std::filesystem::path& file, std::uintmax_t mostBytes) {
    const std::string name = Utf8OfPath(file);
    return ReadHostText(ReadTextFile(file, name, mostBytes), name);
}

}  // namespace qv::service
