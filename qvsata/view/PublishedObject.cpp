#include "qvsata/view/PublishedObject.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "source/Text.h"

namespace qv::view {
namespace {

/// Returns the value of a property as a `Value`, or the first element of an array of them.
template <typename Value>
std::optional<Value> First(const PublishedObject& object, std::string_view property) {
    const auto found = object.values.find(property);
    if (found == object.values.end()) {
        return std::nullopt;
    }
    if (const auto* single = std::get_if<Value>(&found->second)) {
        return *single;
    }
    const auto* several = std::get_if<std::vector<Value>>(&found->second);
    return several == nullptr || several->empty() ? std::nullopt
                                                  : std::optional<Value>(several->front());
}

/// Returns the path that references to an object without a path have: only keys with a value.
std::string PathOfKnownKeys(const PublishedObject& object) {
    service::ObjectPath path;
    path.className = object.className;
    const bool hasDeviceId = First<std::string>(object, "DeviceID").has_value();
    for (const std::string_view key :
         {std::string_view("CreationClassName"),
          std::string_view(hasDeviceId ? "DeviceID" : "Name"),
          std::string_view("SystemCreationClassName"), std::string_view("SystemName")}) {
        if (auto value = First<std::string>(object, key)) {
            path.keys.push_back({std::string(key), std::move(*value)});
        }
    }
    return service::FormatObjectPath(path);
}

}  // namespace

std::string PublishedObject::Text(std::string_view property) const {
    return First<std::string>(*this, property).value_or(std::string());
}

std::optional<std::int64_t> PublishedObject::Number(std::string_view property) const {
    return First<std::int64_t>(*this, property);
}

std::optional<bool> PublishedObject::Flag(std::string_view property) const {
    return First<bool>(*this, property);
}

std::string PublishedObject::Referenced(std::string_view role) const {
    const auto found =
        std::ranges::find(references, role, &std::pair<std::string, std::string>::first);
    return found == references.end() ? std::string() : IdentityOf(found->second);
}

std::string PublishedObject::Identity() const {
    return IdentityOf(path.empty() ? PathOfKnownKeys(*this) : path);
}

std::string IdentityOf(std::string_view path) {
    const auto parsed = service::ParseObjectPath(path);
    return FoldCase(parsed ? service::FormatObjectPath(*parsed, service::PathForm::relative,
                                                       service::KeyOrder::alphabetical)
                           : path);
}

const std::vector<PublishedObject>& InstancesOf(const PublishedHost& host,
                                                std::string_view className) {
    static const std::vector<PublishedObject> none;
    const auto found = host.find(className);
    return found == host.end() ? none : found->second;
}

}  // namespace qv::view
