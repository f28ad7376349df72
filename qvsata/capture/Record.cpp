#include "qvsata/capture/Record.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvsata/capture/CapturedClasses.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/recorded/RecordedObject.h"
#include "source/Text.h"

namespace qv::capture {
namespace {

using namespace service;

/// System properties that a recording derives. The letter case of the derived ones may differ from
/// the machine's ("ROOT\CIMV2"): names and paths ignore it.
constexpr std::array<std::string_view, 5> derivedNames{"__CLASS", "__SERVER", "__NAMESPACE",
                                                       "__RELPATH", "__PATH"};

/// Adds the system properties that differ from those that a recording of the row derives.
void AddStated(const Object& object, const std::string& className,
               const std::shared_ptr<const RecordedScope>& scope, RowProperties& properties) {
    const RecordedObject derived(std::make_shared<const RecordedRow>(
                                     std::make_shared<const std::string>(className), properties),
                                 scope);
    for (const std::string_view name : derivedNames) {
        std::string stated = TextOf(object, name);
        if (!stated.empty() && !EqualsIgnoringCase(stated, TextOf(derived, name))) {
            properties.emplace_back(name, std::move(stated));
        }
    }
}

RowProperties RowOf(const Object& object, const std::string& className,
                    const std::shared_ptr<const RecordedScope>& scope) {
    RowProperties properties;
    for (ObjectProperty& property : PropertiesOf(object)) {
        properties.emplace_back(std::move(property.name), std::move(property.value));
    }
    AddStated(object, className, scope, properties);
    return properties;
}

}  // namespace

RecordedHost Record(const Connector& machine, const RecordedHost& computer) {
    RecordedHost host = computer.WithoutRows();
    for (const CapturedClass& source : CapturedClasses()) {
        const std::string name(source.name);
        const Connection connection = machine(source.nameSpace);
        if (connection.status == status::invalidNamespace) {
            continue;
        }
        const Answer answer = connection.services
                                  ? connection.services->Query("SELECT * FROM " + name)
                                  : Answer{connection.status, {}, {}};
        if (!Succeeded(answer.status)) {
            host.FailClass(source.nameSpace, name, answer.status);
            continue;
        }
        host.DefineClass(source.nameSpace, name);
        const auto scope = std::make_shared<const RecordedScope>(
            RecordedScope{host.Computer().server, std::string(source.nameSpace)});
        for (const ObjectPtr& object : answer.objects) {
            host.AddRow(source.nameSpace, name, RowOf(*object, name, scope));
        }
    }
    return host;
}

}  // namespace qv::capture
