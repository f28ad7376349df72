#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace qv::test {

/// What becomes of a class's one instance on OneDiskHost when a query fails.
struct ExpectedFailure {
    bool publishes;                             ///< whether it is still published
    std::set<std::string> without{};            ///< the properties that it then lacks
    std::map<std::string, std::string> with{};  ///< the properties that then have another value
};

/// The queries of an instance class, "namespace: text" in the order in which they are made, on the
/// host of Queries_test.cpp.
struct ExpectedQueries {
    const char* className;
    std::string keys;  ///< the path of one of its instances behind the class name and the point
    std::vector<std::string> all;
    std::vector<std::string> keysOnly;
    std::vector<std::string> byPath;
    std::vector<ExpectedFailure> failures;  ///< of each query that OneDiskHost is asked, in order
};

/// In the order of the catalogue.
const std::vector<ExpectedQueries>& QueriesOfInstanceClasses();

}  // namespace qv::test
