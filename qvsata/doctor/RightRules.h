#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "qvsata/doctor/Facts.h"

namespace qv::doctor {

/// Returns the entries that allow accounts other than trusted ones any right of a mask. A right
/// does not count if an earlier entry denies it to the same account or to everyone.
std::vector<Right> OthersWith(const std::vector<Right>& rights, std::uint32_t mask);

/// Returns whether the accounts that host the providers can read and run files. The system always
/// can, in a folder of administrators.
bool IsReadByHosts(const std::vector<Right>& rights);

/// Returns the entries that deny those accounts some of that.
std::vector<Right> DenialsOfHosts(const std::vector<Right>& rights);

/// Returns the accounts as a person reads them: "Users, Ann (owner)".
std::string NamesOf(const std::vector<Right>& rights);

}  // namespace qv::doctor
