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

// Returns what becomes of the record of a sound host.
RecordList Published(InstanceRecord record, const ExpectedFailure& failure) {
    std::erase_if(record.properties, [&failure](const PropertyEntry& entry) {
        return failure.without.contains(entry.name);
    });
    for (PropertyEntry& entry : record.properties) {
        const auto changed = failure.with.find(entry.name);
        entry.value = changed == failure.with.end() ? entry.value : changed->second;
    }
    return failure.publishes ? RecordList{record} : RecordList{};
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
    const RecordList sound = Publish(GetParam().className, 0);
    ASSERT_EQ(sound.size(), 1U);
    EXPECT_EQ(Publish(GetParam().className, GetParam().query),
              Published(sound.front(), GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Table, FailingQueriesTest, testing::ValuesIn(AllFailures()),
                         [](const auto& one) {
                             return std::string(one.param.className) + "_query" +
                                    std::to_string(one.param.query);
                         });

class FailingQueriesTable : public OneDiskHost, public testing::TestWithParam<ExpectedQueries> {};

TEST_P(FailingQueriesTable, HasTheFailureOfEachQuery) {
    api.BuildInstances(GetParam().className, mode::allProperties, {});
    // The software classes also query the devices of the channel: one query is unanswered.
    EXPECT_EQ(GetParam().failures.size(), host.asked.size());
}

INSTANTIATE_TEST_SUITE_P(EachClass, FailingQueriesTable,
                         testing::ValuesIn(QueriesOfInstanceClasses()),
                         [](const auto& one) { return one.param.className; });

}  // namespace
}  // namespace qv::test
