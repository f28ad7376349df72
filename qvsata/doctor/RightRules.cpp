#include "qvsata/doctor/RightRules.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "qvsata/doctor/Finding.h"

namespace qv::doctor {
namespace {

constexpr std::string_view everyone = "S-1-1-0";

// FILE_LIST_DIRECTORY and FILE_TRAVERSE, or what contains them.
constexpr std::array<std::uint32_t, 3> readings{0x21, 0xA0000000, 0x10000000};

/// Returns what is allowed and not denied by an entry before.
std::vector<Right> Granted(const std::vector<Right>& rights) {
    std::vector<Right> granted;
    for (auto right = rights.begin(); right != rights.end(); ++right) {
        if (right->isDenied) {
            continue;
        }
        granted.push_back(*right);
        for (auto earlier = rights.begin(); earlier != right && !right->isOwner; ++earlier) {
            if (earlier->isDenied && (earlier->id == right->id || earlier->id == everyone)) {
                granted.back().mask &= ~earlier->mask;
            }
        }
    }
    return granted;
}

/// NETWORK SERVICE, and the groups that it is in: users, authenticated users and everyone.
bool IsHost(const Right& right) {
    static constexpr std::array<std::string_view, 4> hosts{"S-1-5-20", "S-1-5-32-545", "S-1-5-11",
                                                           everyone};
    return std::ranges::find(hosts, right.id) != hosts.end();
}

}  // namespace

std::vector<Right> OthersWith(const std::vector<Right>& rights, std::uint32_t mask) {
    std::vector<Right> others = Granted(rights);
    std::erase_if(
        others, [mask](const Right& right) { return right.isTrusted || (right.mask & mask) == 0; });
    return others;
}

bool IsReadByHosts(const std::vector<Right>& rights) {
    std::uint32_t allowed = 0;
    std::uint32_t denied = 0;
    for (const Right& right : rights) {
        if (IsHost(right)) {
            (right.isDenied ? denied : allowed) |= right.mask & ~denied;
        }
    }
    return std::ranges::any_of(
        readings, [allowed](std::uint32_t reading) { return (allowed & reading) == reading; });
}

std::vector<Right> DenialsOfHosts(const std::vector<Right>& rights) {
    std::vector<Right> denials;
    std::ranges::copy_if(rights, std::back_inserter(denials), [](const Right& right) {
        return right.isDenied && IsHost(right) &&
               std::ranges::any_of(readings, [&right](std::uint32_t reading) {
                   return (right.mask & reading) != 0;
               });
    });
    return denials;
}

std::string NamesOf(const std::vector<Right>& rights) {
    std::vector<std::string> names;
    std::ranges::transform(rights, std::back_inserter(names), [](const Right& right) {
        return right.account + (right.isOwner ? " (owner)" : "");
    });
    return Joined(names, ", ");
}

}  // namespace qv::doctor
