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

TEST(ControllerLinksOracle, FindWhatThePlainWalkFinds) {
    // Few and similar IDs, so that most of them match.
    constexpr std::array ids{"A", "a", R"(A\)", R"(\a)", "AB", R"(a\B)", "b", ""};
    std::mt19937 random(20240601);
    const auto anyOf = [&random, &ids] {
        return std::string(
            ids[std::uniform_int_distribution<std::size_t>(0, ids.size() - 1)(random)]);
    };
    for (int round = 0; round < 300; ++round) {
        std::vector<Properties> linkRows;
        std::vector<Properties> controllerRows;
        for (int count = 0; count < 6; ++count) {
            linkRows.push_back(ControllerLink(anyOf(), anyOf()));
            controllerRows.push_back(Controller(anyOf()));
        }
        const platform::Rows links = RowsOf(linkRows);
        const platform::Rows controllers = RowsOf(controllerRows);
        const ControllerLinks indexed(links, controllers);
        for (const std::string id : ids) {
            const std::string path = FullPath("Win32_IDEController", id);
            EXPECT_EQ(indexed.ControllerOfDisk(id),
                      LastLink(links, controllers, [&id](const std::string& dependent) {
                          return EqualsIgnoringCase(DeviceIdOf(dependent), StripBackslashes(id));
                      }));
            EXPECT_EQ(indexed.ControllerOfChannel(path),
                      LastLink(links, controllers, [&path](const std::string& dependent) {
                          return Tail(dependent) == Tail(path);
                      }));
        }
    }
}

}  // namespace
}  // namespace qv::test
