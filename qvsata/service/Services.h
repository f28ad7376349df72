#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "qvsata/service/Answer.h"

namespace qv::service {

/// A connection to one namespace of a management service. Any number of threads may call it at
/// once.
class Services {
public:
    virtual ~Services() = default;

    /// Returns the class definition or the instance that a path names.
    virtual Answer Get(std::string_view path) const = 0;

    /// Returns the instances of a class and of its subclasses.
    virtual Answer Enumerate(std::string_view className) const = 0;

    /// Returns the result of a WQL query.
    virtual Answer Query(std::string_view wql) const = 0;

    /// Returns the first result of "SELECT * FROM className" whose property is exactly a text. An
    /// object without a text there has the empty one.
    virtual FoundObject FindText(std::string_view className, std::string_view property,
                                 std::string_view text) const;
};

/// Returns the query of all instances of a class.
inline std::string SelectAll(std::string_view className) {
    return "SELECT * FROM " + std::string(className);
}

/// The result of connecting to a namespace: the connection, or the status of the failure.
struct Connection {
    Status status = Status::noError;
    std::shared_ptr<const Services> services;  ///< null on failure
};

/// Connects to a namespace of a machine, recorded or live. `nameSpace` is in the caller's spelling.
/// Any number of threads may connect at once.
using Connector = std::function<Connection(std::string_view nameSpace)>;

}  // namespace qv::service
