#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// What is known of a link, from the best to the worst.
enum class State {
    ok,
    uncheckable,  ///< no program but the service itself can know
    note,         ///< works, and an administrator may want to know
    notChecked,   ///< a fact is missing
    problem,
};

/// The judgement on one link between a client and the provider.
struct Finding {
    State state = State::ok;
    std::string text;  ///< what is wrong, or why it was not checked; empty if it is OK
    std::string mend;  ///< the command that mends it; empty if there is none
};

/// Returns the finding of a problem.
Finding Problem(std::string text, std::string mend);

/// Judges a fact; one that could not be looked at is not checked.
template <typename Value, typename Judge>
Finding Judged(const Fact<Value>& fact, Judge judge) {
    if (const auto* const unknown = std::get_if<Unknown>(&fact)) {
        return {State::notChecked, unknown->why, {}};
    }
    return judge(std::get<Value>(fact));
}

/// Returns the first of the worst findings; that all is well if there is none.
Finding Worst(const std::vector<Finding>& findings);

/// Returns texts with a separator between them.
std::string Joined(const std::vector<std::string>& texts, std::string_view separator);

}  // namespace qv::doctor
