#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/CimValue.h"

namespace qv::view {

/// An instance as a provider publishes it.
struct PublishedObject {
    std::string className;
    std::string path;                                              ///< relative
    std::map<std::string, service::CimValue, std::less<>> values;  ///< by property
    /// The references of an association, in the order of its class: role and path.
    std::vector<std::pair<std::string, std::string>> references;

    /// A text, or the first of an array of texts; empty when there is none.
    std::string Text(std::string_view property) const;
    /// A number, or the first of an array of numbers.
    std::optional<std::int64_t> Number(std::string_view property) const;
    std::optional<bool> Flag(std::string_view property) const;
    /// The identity (see below) of what a reference names; empty when there is none.
    std::string Referenced(std::string_view role) const;
    std::string Identity() const;
};

/// A text that is the same for all paths of one object, whatever the order of their keys, their
/// letter case, their server and namespace. A text that is no path is its own identity.
std::string IdentityOf(std::string_view path);

/// The instances of a host, by class.
using PublishedHost = std::map<std::string, std::vector<PublishedObject>, std::less<>>;

/// The instances of a class; none for a class that the host does not have.
const std::vector<PublishedObject>& InstancesOf(const PublishedHost& host,
                                                std::string_view className);

}  // namespace qv::view
