#pragma once

#include <string>
#include <string_view>

#include "qvsata/explain/Verdict.h"

namespace qv::explain {

/// Returns the name of a rule for programs: "interfaceType".
std::string_view NameOf(Rule rule);

/// Returns what the rule found in words, with its values: a clause without a full stop. Texts of
/// devices are unchanged.
std::string Sentence(const Finding& finding);

/// Returns an outcome for programs and in words. A row that only adds to other instances is "not
/// used" when it is left out.
std::string_view NameOf(Outcome outcome);
std::string WordsOf(const Verdict& verdict);

}  // namespace qv::explain
