#include "qvsata/wql/WqlConditions.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ClassDefinition.h"
#include "qvsata/wql/Wql.h"
#include "qvsata/wql/WqlLike.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// A condition made of two functions.
template <typename Holds, typename Check>
class FunctionCondition : public WqlCondition {
public:
    FunctionCondition(Holds holds, Check check)
        : holds_(std::move(holds)), check_(std::move(check)) {}

    bool HoldsFor(const Object& object) const override { return holds_(object); }
    void CheckAgainst(const WqlScope& scope) const override { check_(scope); }

private:
    Holds holds_;
    Check check_;
};

template <typename Holds, typename Check>
ConditionPtr MakeCondition(Holds holds, Check check) {
    return std::make_shared<FunctionCondition<Holds, Check>>(std::move(holds), std::move(check));
}

ObjectProperty ReadOrNull(const Object& object, const std::string& name) {
    return object.Find(name).value_or(ObjectProperty{});
}

/// "'Size' (uint64)".
std::string Described(const ObjectProperty& property) {
    return "'" + property.name + "' (" + std::string(CimTypeName(property.type)) +
           (property.isArray ? "[])" : ")");
}

void CheckAll(const std::vector<ConditionPtr>& conditions, const WqlScope& scope) {
    std::ranges::for_each(conditions,
                          [&scope](const auto& condition) { condition->CheckAgainst(scope); });
}

}  // namespace

ObjectProperty PropertyNamed(const WqlName& name, const WqlScope& scope) {
    std::optional<ObjectProperty> property = scope.definition.Find(name.text);
    if (!property) {
        throw WqlError(
            "unknown property '" + name.text + "' of class '" + scope.definition.ClassName() + "'",
            name.column);
    }
    return *std::move(property);
}

ConditionPtr CompareProperty(WqlName name, Comparison comparison, WqlConstant constant) {
    return MakeCondition(
        [name = name.text, comparison, constant](const Object& object) {
            return Satisfies(ReadOrNull(object, name), comparison, constant);
        },
        [name, comparison, constant](const WqlScope& scope) {
            const ObjectProperty property = PropertyNamed(name, scope);
            const std::string reason = WhyNotComparable(property, comparison, constant);
            if (!reason.empty()) {
                throw WqlError(Described(property) + ": " + reason, name.column);
            }
        });
}

ConditionPtr MatchProperty(WqlName name, const std::string& pattern) {
    return MakeCondition(
        [name = name.text, like = LikePattern(pattern)](const Object& object) {
            const CimValue value = ReadOrNull(object, name).value;
            const auto* text = std::get_if<std::string>(&value);
            return text != nullptr && like.Matches(*text);
        },
        [name](const WqlScope& scope) {
            const ObjectProperty property = PropertyNamed(name, scope);
            if (!IsMatchable(property)) {
                throw WqlError(Described(property) + ": LIKE applies to texts only", name.column);
            }
        });
}

ConditionPtr PropertyIsNull(WqlName name) {
    return MakeCondition(
        [name = name.text](const Object& object) {
            return std::holds_alternative<std::monostate>(ReadOrNull(object, name).value);
        },
        [name](const WqlScope& scope) { PropertyNamed(name, scope); });
}

ConditionPtr IsOfClass(WqlName className) {
    return MakeCondition(
        [name = className.text](const Object& object) {
            const CimValue parents = ReadOrNull(object, "__DERIVATION").value;
            const auto* names = std::get_if<std::vector<std::string>>(&parents);
            const auto isWanted = [&name](const std::string& candidate) {
                return EqualsIgnoringCase(candidate, name);
            };
            return isWanted(object.ClassName()) ||
                   (names != nullptr && std::ranges::any_of(*names, isWanted));
        },
        [className](const WqlScope& scope) {
            if (!scope.hasClass(className.text)) {
                throw WqlError("unknown class '" + className.text + "'", className.column);
            }
        });
}

ConditionPtr AllOf(std::vector<ConditionPtr> conditions) {
    return MakeCondition(
        [conditions](const Object& object) {
            return std::ranges::all_of(conditions, [&object](const auto& condition) {
                return condition->HoldsFor(object);
            });
        },
        [conditions](const WqlScope& scope) { CheckAll(conditions, scope); });
}

ConditionPtr AnyOf(std::vector<ConditionPtr> conditions) {
    return MakeCondition(
        [conditions](const Object& object) {
            return std::ranges::any_of(conditions, [&object](const auto& condition) {
                return condition->HoldsFor(object);
            });
        },
        [conditions](const WqlScope& scope) { CheckAll(conditions, scope); });
}

ConditionPtr Not(ConditionPtr condition) {
    return MakeCondition([condition](const Object& object) { return !condition->HoldsFor(object); },
                         [condition](const WqlScope& scope) { condition->CheckAgainst(scope); });
}

}  // namespace qv::service
