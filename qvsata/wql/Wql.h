#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/cim/CimValue.h"
#include "qvsata/cim/ObjectPath.h"

namespace qv::service {

/// A text that is not a query. The message is one line and names the column.
class WqlError : public std::runtime_error {
public:
    WqlError(const std::string& reason, std::size_t column)
        : std::runtime_error("column " + std::to_string(column) + ": " + reason), column_(column) {}

    /// Where the trouble is; the first byte of the text is column 1.
    std::size_t Column() const { return column_; }

private:
    std::size_t column_;
};

/// Reads one property of an object by name; nothing when it cannot be read. Names are given in the
/// query's spelling.
using PropertyReader = std::function<std::optional<CimValue>(std::string_view)>;

/// What follows WHERE in a SELECT. Immutable; may be used from several threads at once.
class WqlCondition {
public:
    virtual ~WqlCondition() = default;

    /// Whether an object meets the condition. Texts are compared without regard to (ASCII) case,
    /// numbers by value also where the property is decimal text. A comparison with a property that
    /// is null, an array or cannot be read, or with NULL itself, is false.
    virtual bool HoldsFor(const PropertyReader& object) const = 0;
};

/// SELECT properties FROM class WHERE condition
struct SelectQuery {
    std::vector<std::string> properties;  ///< empty for *
    std::string className;
    std::shared_ptr<const WqlCondition> where;  ///< null without WHERE

    bool Accepts(const PropertyReader& object) const {
        return where == nullptr || where->HoldsFor(object);
    }
    /// Whether class definitions are asked for: FROM meta_class.
    bool AsksForClasses() const;
};

/// ASSOCIATORS OF {path} WHERE ...; names that were not given are empty.
struct AssociatorsQuery {
    ObjectPath path;
    std::string assocClass;
    std::string resultClass;
    std::string role;        ///< the reference that names the path
    std::string resultRole;  ///< the reference that names the result
    bool classDefsOnly = false;
};

/// REFERENCES OF {path} WHERE ...; names that were not given are empty.
struct ReferencesQuery {
    ObjectPath path;
    std::string resultClass;
    std::string role;  ///< the reference that names the path
    bool classDefsOnly = false;
};

using WqlQuery = std::variant<SelectQuery, AssociatorsQuery, ReferencesQuery>;

/// Reads a query. Keywords are accepted in any letter case; texts stand in ' or " with a backslash
/// before a quote or a backslash that belongs to them. Throws WqlError.
WqlQuery ParseWql(std::string_view text);

}  // namespace qv::service
