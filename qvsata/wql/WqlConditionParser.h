#pragma once

#include "qvsata/wql/WqlConditions.h"
#include "qvsata/wql/WqlCursor.h"

namespace qv::service {

/// Parses a condition, the rule `condition` of ParseWql's grammar, from the next token on. Throws
/// WqlError.
ConditionPtr ParseCondition(WqlCursor& tokens);

}  // namespace qv::service
