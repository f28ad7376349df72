#include "catalogue/Associations.h"

#include <gtest/gtest.h>

#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

// An association in a form that both tables share: its ends and rules in turn, then its property.
using Parameters = std::vector<std::string>;

std::string Printed(std::string_view role, std::string_view className, std::string_view key) {
    return std::string(role) + ": " + std::string(className) + " (" + std::string(key) + ")";
}
std::string Printed(const AssociationEnd& end) {
    return Printed(end.role, end.className, end.key);
}
std::string Printed(const ExpectedEnd& end) {
    return Printed(end.role, end.className, end.key);
}
std::string Rule(std::uint32_t number) {
    return "rule " + std::to_string(number);
}
std::string Rule(MatchRule rule) {
    return Rule(static_cast<std::uint32_t>(rule));
}
std::string Printed(std::string_view name, std::string_view value, PropertyType type) {
    return std::string(name) + " = " + std::string(value) + " (type " +
           std::to_string(static_cast<std::uint32_t>(type)) + ")";
}

Parameters ParametersOf(const Association& one) {
    Parameters parameters{std::string(one.name), Printed(one.first), Rule(one.rule),
                          Printed(one.second)};
    if (one.HasThreeEnds()) {
        parameters.push_back(Rule(one.thirdRule));
        parameters.push_back(Printed(one.third));
    }
    if (!one.added.name.empty()) {
        parameters.push_back(Printed(one.added.name, one.added.value, one.added.type));
    }
    return parameters;
}

Parameters ParametersOf(const ExpectedAssociation& one) {
    Parameters parameters{one.name, Printed(one.ends.at(0))};
    for (std::size_t rule = 0; rule < one.rules.size(); ++rule) {
        parameters.push_back(Rule(one.rules[rule]));
        parameters.push_back(Printed(one.ends.at(rule + 1)));
    }
    if (one.added) {
        const PropertyEntry& put = one.added->put;
        parameters.push_back(Printed(put.name, put.value, put.type));
    }
    return parameters;
}

template <typename Table>
std::vector<Parameters> AllOf(const Table& table) {
    std::vector<Parameters> all;
    for (const auto& one : table) {
        all.push_back(ParametersOf(one));
    }
    return all;
}

TEST(Associations, HaveTheParametersOfTheCatalogueInDispatchOrder) {
    EXPECT_EQ(AllOf(associations), AllOf(ExpectedAssociations()));
}

}  // namespace
}  // namespace qv::test
