#include "qvsata/capture/MapTexts.h"

#include <utility>

namespace qv::capture {
namespace {

using namespace service;

CimValue Mapped(std::string_view property, CimValue value, const TextMap& map) {
    if (auto* const text = std::get_if<std::string>(&value)) {
        *text = map(property, *text);
    } else if (auto* const texts = std::get_if<std::vector<std::string>>(&value)) {
        for (std::string& one : *texts) {
            one = map(property, one);
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
