#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/wql/Wql.h"

namespace qv::service {

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
