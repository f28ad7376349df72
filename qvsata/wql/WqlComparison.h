#pragma once

#include <string>
#include <variant>

#include "qvsata/cim/Object.h"
#include "qvsata/wql/WqlNumber.h"

namespace qv::service {

enum class Comparison { equal, notEqual, less, greater, lessOrEqual, greaterOrEqual };

/// A constant of a condition: NULL, TRUE or FALSE, a number, a text.
using WqlConstant = std::variant<std::monostate, bool, WqlNumber, std::string>;

/// Returns why a property cannot be compared with a constant, as a phrase; empty if it can. The
/// property's value does not matter. The rules:
///
/// | property | constants | comparisons |
/// | --- | --- | --- |
/// | any but an array | NULL | = and <> |
/// | number | a number, TRUE (1), FALSE (0), a text that is a number | all |
/// | boolean | TRUE, FALSE, 1, -1 (TRUE) and 0, each also as a text | = and <> |
/// | string | a text | all |
/// | datetime | a text that WqlDateTime::ParseConstant accepts | all; = and <> with asterisks |
/// | reference | an object path | = and <> |
/// | array, embedded object | none | none |
std::string WhyNotComparable(const ObjectProperty& property, Comparison comparison,
                             const WqlConstant& constant);

/// Returns whether LIKE applies to the property: it is a text, a date or a reference.
bool IsMatchable(const ObjectProperty& property);

/// Returns whether a property's value compares with a constant. Numbers compare by value, texts
/// ignoring (ASCII) case, dates by time, references by the object that they name. NULL equals null
/// and nothing else; any other comparison with a null property, or of sides that
/// WhyNotComparable refuses, is false. A text without a declared type, as recorded rows have it,
/// compares with a number if it is one.
bool Satisfies(const ObjectProperty& property, Comparison comparison, const WqlConstant& constant);

}  // namespace qv::service
