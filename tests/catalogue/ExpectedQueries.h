#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace qv::test {

/// What happens to a class's one instance on OneDiskHost if a query fails.
struct ExpectedFailure {
    bool publishes;                             ///< whether it is still published
    std::set<std::string> without{};            ///< the missing properties
    std::map<std::string, std::string> with{};  ///< the properties with another value
};

/// The queries of an instance class on the host of Queries_test.cpp, as "namespace: text" in their
/// order.
struct ExpectedQueries {
    const char* className;
    std::string keys;  ///< one instance's path, without the class name and the point
    std::vector<std::string> all;
    std::vector<std::string> keysOnly;
    std::vector<std::string> byPath;
    std::vector<ExpectedFailure> failures;  ///< one per query on OneDiskHost, in order
};

/// Returns the queries in the order of the catalogue.
const std::vector<ExpectedQueries>& QueriesOfInstanceClasses();

}  // namespace qv::test
