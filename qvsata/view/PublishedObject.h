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

    /// Returns a text, or the first of an array of texts; empty if there is none.
    std::string Text(std::string_view property) const;
    /// Returns a number, or the first of an array of numbers.
    std::optional<std::int64_t> Number(std::string_view property) const;
    std::optional<bool> Flag(std::string_view property) const;
    /// Returns the identity (see IdentityOf) of the object that a reference names; empty if there
    /// is none.
    std::string Referenced(std::string_view role) const;
    /// Returns the object's identity; without a path, that of its keys that have a value, as
    /// references name such an object.
    std::string Identity() const;
};

/// Returns a text that is equal for all paths of one object: it ignores key order, letter case,
/// server and namespace. For a text that is not a path, returns the text in lower case.
std::string IdentityOf(std::string_view path);

/// The instances of a host by class.
using PublishedHost = std::map<std::string, std::vector<PublishedObject>, std::less<>>;

/// Returns the instances of a class; empty if the host lacks the class.
const std::vector<PublishedObject>& InstancesOf(const PublishedHost& host,
                                                std::string_view className);

}  // namespace qv::view
