#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/Object.h"
#include "qvsata/wql/WqlComparison.h"
#include "qvsata/wql/WqlName.h"

namespace qv::service {

/// What the names of a SELECT may mean.
struct WqlScope {
    const Object& definition;  ///< of the class that the query selects from: its properties
    std::function<bool(std::string_view)> hasClass;  ///< whether the namespace has a class
};

/// The condition of a SELECT. Immutable; may be used from several threads at once.
class WqlCondition {
public:
    virtual ~WqlCondition() = default;

    /// Returns whether an object meets the condition; Satisfies has the rules of comparisons. A
    /// property that the object lacks is null.
    virtual bool HoldsFor(const Object& object) const = 0;

    /// Throws WqlError if the condition names a property or class that is not in the scope, or uses
    /// a property in a way that its type does not allow.
    virtual void CheckAgainst(const WqlScope& scope) const = 0;
};

using ConditionPtr = std::shared_ptr<const WqlCondition>;

// Each function makes one kind of condition.
ConditionPtr CompareProperty(WqlName name, Comparison comparison, WqlConstant constant);
/// LIKE; see LikePattern.
ConditionPtr MatchProperty(WqlName name, const std::string& pattern);
ConditionPtr PropertyIsNull(WqlName name);
/// ISA: holds if the object's __CLASS or one of its __DERIVATION is the class.
ConditionPtr IsOfClass(WqlName className);
ConditionPtr AllOf(std::vector<ConditionPtr> conditions);
ConditionPtr AnyOf(std::vector<ConditionPtr> conditions);
ConditionPtr Not(ConditionPtr condition);

/// Returns the property of the scope's class that has this name. Throws WqlError if there is none.
ObjectProperty PropertyNamed(const WqlName& name, const WqlScope& scope);

}  // namespace qv::service
