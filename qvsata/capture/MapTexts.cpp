#include "qvsata/capture/MapTexts.h"

#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "qvsata/capture/Secrets.h"

namespace qv::capture {
namespace {

using namespace service;

/// Returns a number with its digits replaced; 0 if none are left. Throws std::logic_error if they
/// become a text that is no number.
std::int64_t MappedNumber(std::string_view property, std::int64_t number, const TextMap& map) {
    const bool isNegative = number < 0;
    const std::string digits = map(property, std::to_string(isNegative ? -number : number));
    std::int64_t mapped = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), mapped);
    if (!digits.empty() && (error != std::errc() || end != digits.data() + digits.size())) {
        throw std::logic_error("the digits of a number became '" + digits + "'");
    }
    return isNegative ? -mapped : mapped;
}

CimValue Mapped(std::string_view property, CimValue value, const TextMap& map) {
    if (auto* const text = std::get_if<std::string>(&value)) {
        *text = map(property, *text);
    } else if (auto* const texts = std::get_if<std::vector<std::string>>(&value)) {
        for (std::string& one : *texts) {
            one = map(property, one);
        }
    } else if (!IsSecretProperty(property)) {
        return value;
    } else if (auto* const number = std::get_if<std::int64_t>(&value)) {
        *number = MappedNumber(property, *number, map);
    } else if (auto* const numbers = std::get_if<std::vector<std::int64_t>>(&value)) {
        for (std::int64_t& one : *numbers) {
            one = MappedNumber(property, one, map);
        }
    }
    return value;
}

}  // namespace

RecordedHost MapTexts(const RecordedHost& host, const RecordedHost& computer, const TextMap& map) {
    RecordedHost mapped = computer.WithoutRows();
    for (const RecordedNamespace& nameSpace : host.Namespaces()) {
        mapped.DefineNamespace(nameSpace.Name());
        for (const RecordedClass& recorded : nameSpace.Classes()) {
            mapped.DefineClass(nameSpace.Name(), recorded.Name());
            if (recorded.Failure()) {
                mapped.FailClass(nameSpace.Name(), recorded.Name(), *recorded.Failure());
            }
            for (const RecordedRow& row : recorded.Rows()) {
                RowProperties properties = row.Properties();
                for (auto& [name, value] : properties) {
                    value = Mapped(name, std::move(value), map);
                }
                mapped.AddRow(nameSpace.Name(), recorded.Name(), std::move(properties));
            }
        }
    }
    return mapped;
}

void VisitTexts(
    const RecordedHost& host,
    const std::function<void(std::string_view property, const std::string& text)>& visit) {
    MapTexts(host, host, [&visit](std::string_view property, const std::string& text) {
        visit(property, text);
        return text;
    });
}

}  // namespace qv::capture
