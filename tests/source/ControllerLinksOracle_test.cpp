// ControllerLinks, compared with a plain search of every link and controller, on generated hosts.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

constexpr std::string_view keyMark = ".DeviceID=";

std::string Tail(const std::string& path) {
    return path.substr(path.find(keyMark));
}

std::string DeviceIdOf(const std::string& path) {
    const std::string quoted = Tail(path).substr(keyMark.size() + 1);
    return StripBackslashes(quoted.substr(0, quoted.size() - 1));
}

// Returns the controller of the last link whose Dependent `isOwn` accepts.
template <typename Predicate>
const platform::Row* LastLink(const platform::Rows& links, const platform::Rows& controllers,
                              Predicate isOwn) {
    const platform::Row* found = nullptr;
    for (const auto& link : links) {
        if (!isOwn(TextOrEmpty(*link, "Dependent"))) {
            continue;
        }
        for (const auto& controller : controllers) {
            if (EqualsIgnoringCase(TextOrEmpty(*controller, "__PATH"),
                                   TextOrEmpty(*link, "Antecedent"))) {
                found = controller.get();
                break;
            }
        }
    }
    return found;
}

// Few and similar IDs, so that most of them match.
constexpr std::array ids{"A", "a", R"(A\)", R"(\a)", "AB", R"(a\B)", "b", ""};

struct LinkedControllers {
    explicit LinkedControllers(std::mt19937& random) {
        const auto anyOf = [&random] {
            return std::string(
                ids[std::uniform_int_distribution<std::size_t>(0, ids.size() - 1)(random)]);
        };
        std::vector<Properties> linkRows;
        std::vector<Properties> controllerRows;
        for (int count = 0; count < 6; ++count) {
            linkRows.push_back(ControllerLink(anyOf(), anyOf()));
            controllerRows.push_back(Controller(anyOf()));
        }
        links = RowsOf(linkRows);
        controllers = RowsOf(controllerRows);
    }

    platform::Rows links;
    platform::Rows controllers;
};

// The controllers of each ID, as a disk's and as a channel's.
using Found = std::vector<std::pair<const platform::Row*, const platform::Row*>>;

Found IndexedControllers(const LinkedControllers& host) {
    const ControllerLinks indexed(host.links, host.controllers);
    Found found;
    for (const char* id : ids) {
        found.emplace_back(indexed.ControllerOfDisk(id),
                           indexed.ControllerOfChannel(FullPath("Win32_IDEController", id)));
    }
    return found;
}

Found WalkedControllers(const LinkedControllers& host) {
    Found found;
    for (const char* id : ids) {
        const std::string path = FullPath("Win32_IDEController", id);
        found.emplace_back(
            LastLink(host.links, host.controllers,
                     [id](const std::string& dependent) {
                         return EqualsIgnoringCase(DeviceIdOf(dependent), StripBackslashes(id));
                     }),
            LastLink(host.links, host.controllers, [&path](const std::string& dependent) {
                return Tail(dependent) == Tail(path);
            }));
    }
    return found;
}

TEST(ControllerLinksOracle, FindWhatThePlainWalkFinds) {
    std::mt19937 random(20240601);
    for (int round = 0; round < 300; ++round) {
        const LinkedControllers host(random);
        ASSERT_EQ(IndexedControllers(host), WalkedControllers(host)) << "round " << round;
    }
}

}  // namespace
}  // namespace qv::test
