#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/cim/CimValue.h"

namespace qv::service {

/// Reads one property of an object by name; returns nothing if it cannot be read. The name has the
/// query's spelling.
using PropertyReader = std::function<std::optional<CimValue>(std::string_view)>;

/// The condition of a SELECT. Immutable; may be used from several threads at once.
class WqlCondition {
public:
    virtual ~WqlCondition() = default;

    /// Returns whether an object meets the condition. Texts are compared ignoring (ASCII) case.
    /// Numbers are compared by value, also if the property is decimal text. A comparison is false
    /// if the property is null, is an array or cannot be read, or if the constant is NULL.
    virtual bool HoldsFor(const PropertyReader& object) const = 0;
};

/// A constant of a condition: NULL, TRUE or FALSE, a number, a text.
using WqlConstant = std::variant<std::monostate, bool, long double, std::string>;

using ConditionPtr = std::shared_ptr<const WqlCondition>;

enum class Comparison { equal, notEqual, less, greater, lessOrEqual, greaterOrEqual };

// Each function makes one kind of condition.
ConditionPtr CompareProperty(std::string name, Comparison comparison, WqlConstant constant);
/// LIKE; see LikePattern.
ConditionPtr MatchProperty(std::string name, const std::string& pattern);
ConditionPtr PropertyIsNull(std::string name);
/// ISA: holds if the object's __CLASS or one of its __DERIVATION is the class.
ConditionPtr IsOfClass(std::string className);
ConditionPtr AllOf(std::vector<ConditionPtr> conditions);
ConditionPtr AnyOf(std::vector<ConditionPtr> conditions);
ConditionPtr Not(ConditionPtr condition);

/// Parses a text that is a whole or decimal number and nothing else; exact for whole numbers of 64
/// bits. Returns nothing for any other text.
std::optional<long double> ParseNumber(std::string_view text);

}  // namespace qv::service
