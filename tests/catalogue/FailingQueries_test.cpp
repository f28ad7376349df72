// What each instance class publishes if one of its queries fails, each query in turn.
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/Catalogue.h"
#include "tests/catalogue/ExpectedQueries.h"
#include "tests/catalogue/OneDiskHost.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

/// Answers as another port, except for the query of this number, from 1, which fails.
class NthQueryFails : public platform::QueryPort {
public:
    NthQueryFails(const platform::QueryPort& answers, std::size_t failing)
        : answers_(answers), failing_(failing) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (++run_ != failing_) {
            return answers_.RunWqlQuery(nameSpace, query, rows);
        }
        rows.clear();
        return Status::failed;
    }

private:
    const platform::QueryPort& answers_;
    std::size_t failing_;
    mutable std::size_t run_ = 0;
};

struct Failure {
    const char* className;
    std::size_t query;  ///< the number of the query that fails
    ExpectedFailure expected;
};

std::vector<Failure> AllFailures() {
    std::vector<Failure> all;
    for (const ExpectedQueries& one : QueriesOfInstanceClasses()) {
        for (std::size_t at = 0; at < one.failures.size(); ++at) {
            all.push_back({one.className, at + 1, one.failures[at]});
        }
    }
    return all;
}

class FailingQueriesTest : public OneDiskHost, public testing::TestWithParam<Failure> {
protected:
    RecordList Publish(const char* className, std::size_t failing) {
        const NthQueryFails queries(host, failing);
        return NativeAPI(PublishedCatalogue(), queries, host, host)
            .BuildInstances(className, mode::allProperties, {});
    }
};

TEST_P(FailingQueriesTest, GiveWhatTheTableSays) {
    const Failure& failure = GetParam();
    RecordList expected = Publish(failure.className, 0);
    ASSERT_EQ(expected.size(), 1U);
    if (failure.expected.publishes) {
        auto& properties = expected.front().properties;
        std::erase_if(properties, [&failure](const PropertyEntry& entry) {
            return failure.expected.without.contains(entry.name);
        });
        for (PropertyEntry& entry : properties) {
            const auto changed = failure.expected.with.find(entry.name);
            entry.value = changed == failure.expected.with.end() ? entry.value : changed->second;
        }
    } else {
        expected.clear();
    }
    EXPECT_EQ(Publish(failure.className, failure.query), expected);
}

INSTANTIATE_TEST_SUITE_P(Table, FailingQueriesTest, testing::ValuesIn(AllFailures()),
                         [](const auto& one) {
                             return std::string(one.param.className) + "_query" +
                                    std::to_string(one.param.query);
                         });

class FailingQueriesTableTest : public OneDiskHost, public testing::Test {};

TEST_F(FailingQueriesTableTest, HasTheFailureOfEachQuery) {
    for (const ExpectedQueries& one : QueriesOfInstanceClasses()) {
        host.asked.clear();
        api.BuildInstances(one.className, mode::allProperties, {});
        // The software classes also query the devices of the channel: one query is unanswered.
        EXPECT_EQ(one.failures.size(), host.asked.size()) << one.className;
    }
}

}  // namespace
}  // namespace qv::test
