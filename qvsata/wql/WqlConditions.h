#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/wql/Wql.h"

namespace qv::service {

/// The constants of a condition: NULL, TRUE or FALSE, a number, a text.
using WqlConstant = std::variant<std::monostate, bool, long double, std::string>;

using ConditionPtr = std::shared_ptr<const WqlCondition>;

enum class Comparison { equal, notEqual, less, greater, lessOrEqual, greaterOrEqual };

// One function for each kind of condition that a query can hold.
ConditionPtr CompareProperty(std::string name, Comparison comparison, WqlConstant constant);
/// LIKE, see LikePattern.
ConditionPtr MatchProperty(std::string name, const std::string& pattern);
ConditionPtr PropertyIsNull(std::string name);
/// Whether the object, by __CLASS and __DERIVATION, is of a class or of one that derives from it.
ConditionPtr IsOfClass(std::string className);
ConditionPtr AllOf(std::vector<ConditionPtr> conditions);
ConditionPtr AnyOf(std::vector<ConditionPtr> conditions);
ConditionPtr Not(ConditionPtr condition);

/// A whole or decimal number that takes up all of the text, exact for 64-bit whole numbers.
std::optional<long double> ParseNumber(std::string_view text);

}  // namespace qv::service
