#pragma once

#include <string_view>
#include <vector>

#include "qvsata/doctor/Facts.h"
#include "qvsata/doctor/Finding.h"

namespace qv::doctor {

/// A link: without it the provider does not work, or not as it should.
struct Link {
    std::string_view name;
    Finding finding;
};

/// Judges each link, in the order in which a request needs them.
std::vector<Link> JudgeLinks(const Facts& facts);

}  // namespace qv::doctor
