#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

enum class State {
    ok,
    note,  ///< works, and an administrator may want to know
    problem,
    notChecked,   ///< a fact is missing
    uncheckable,  ///< no program but the service itself can know
};

/// The judgement on one link between a client and the provider.
struct Finding {
    State state = State::ok;
    std::string text;  ///< what is wrong, or why it was not checked; empty if it is OK
    std::string mend;  ///< the command that mends it; empty if there is none
};

/// A link: without it the provider does not work, or not as it should.
struct Link {
    std::string_view name;
    Finding finding;
};

/// Judges each link, in the order in which a request needs them.
std::vector<Link> JudgeLinks(const Facts& facts);

}  // namespace qv::doctor
