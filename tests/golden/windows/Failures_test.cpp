// What a class publishes if one of its source queries cannot be connected, is refused or breaks
// off: an empty list, or less complete instances. The request itself succeeds.
#include "tests/golden/windows/ClassFailures.h"
#include "tests/golden/windows/FaultySource.h"

namespace qv::test {
namespace {

std::string ValueOf(const PublishedInstance& instance, const std::string& name) {
    const auto found = std::ranges::find(instance.properties, name, &PublishedProperty::name);
    if (found == instance.properties.end()) {
        return "(none)";
    }
    const auto* text = std::get_if<std::string>(&found->value);
    return text == nullptr ? ValueText(found->value) : *text;
}

std::string WholeQuery(const std::string& query) {
    const std::string nameSpace = query.starts_with("QV_") ? R"(root\QVQ: )" : R"(root\CIMv2: )";
    return nameSpace + (query.starts_with("ASSOCIATORS") ? query : "SELECT * FROM " + query);
}

/// Runs all classes on one host, one after the other.
class FailuresTest : public testing::TestWithParam<ClassFailures> {
protected:
    static void SetUpTestSuite() { host = std::make_unique<FaultyHost>(TwoDisks()); }
    static void TearDownTestSuite() { host.reset(); }

    static PublishedInstances Publish(std::optional<Fault> fault = {}) {
        return host->Publish(GetParam().className, fault);
    }

    /// Returns every property of the instances, as text.
    static std::string Whole(const PublishedInstances& published) {
        return GoldenText({published}, NamespacePrefix("SRV01"));
    }

    /// Returns the remaining instances with their expected changes, as text.
    std::string WholeOf(const Instances& kept) const {
        PublishedInstances left{sound_.className, {}};
        for (const Kept& one : kept) {
            left.instances.push_back(sound_.instances.at(one.place));
            auto& properties = left.instances.back().properties;
            std::erase_if(properties, [&one](const PublishedProperty& property) {
                return one.without.contains(property.name);
            });
            for (PublishedProperty& property : properties) {
                const auto changed = one.with.find(property.name);
                property.value = changed == one.with.end() ? property.value : changed->second;
            }
        }
        return Whole(left);
    }

    /// Returns the telling values of each instance, joined.
    Lines TellingValues() const {
        Lines told;
        for (const PublishedInstance& instance : sound_.instances) {
            std::string text;
            for (const char* name : GetParam().telling) {
                text += text.empty() ? "" : "|";
                text += ValueOf(instance, name);
            }
            told.push_back(text);
        }
        return told;
    }

    static Lines WholeQueries() {
        Lines queries;
        for (const QueryFailure& one : GetParam().queries) {
            queries.push_back(WholeQuery(one.query));
        }
        return queries;
    }

    /// Returns what is published when each of the class's queries, in turn, fails at a stage.
    static Lines PublishedAtEachFault(Stage stage) {
        Lines published;
        for (std::size_t turn = 0; const QueryFailure& one : GetParam().queries) {
            published.push_back(WholeQuery(one.query) +
                                Whole(Publish(Fault{turn++, stage, one.rows})));
        }
        return published;
    }

    /// Returns what the table expects for each of the class's queries.
    Lines Remaining(Instances QueryFailure::*kept) const {
        Lines expected;
        for (const QueryFailure& one : GetParam().queries) {
            expected.push_back(WholeQuery(one.query) + WholeOf(one.*kept));
        }
        return expected;
    }

    inline static std::unique_ptr<FaultyHost> host;
    PublishedInstances sound_ = Publish();
};

TEST_P(FailuresTest, OfNoQueryLeaveTheWhole) {
    EXPECT_EQ(TellingValues(), GetParam().whole);
    EXPECT_EQ(host->Asked(), WholeQueries());
}

TEST_P(FailuresTest, OfAConnectionOrASubmissionKeepWhatTheTableSays) {
    const Lines expected = Remaining(&QueryFailure::refused);
    EXPECT_EQ(PublishedAtEachFault(Stage::connecting), expected);
    EXPECT_EQ(PublishedAtEachFault(Stage::submitting), expected);
}

TEST_P(FailuresTest, InTheMiddleOfTheRowsKeepWhatWasRead) {
    EXPECT_EQ(PublishedAtEachFault(Stage::reading), Remaining(&QueryFailure::brokenOff));
}

TEST(Failures, PartitionQueryIsNotMadeWhenThatOfTheLinksFailed) {
    FaultyHost host(TwoDisks());
    host.Publish("QV_SATAStorageExtent", Fault{1, Stage::submitting});
    EXPECT_EQ(host.Asked(), (Lines{WholeQuery(disks), WholeQuery(partitionLinks)}));
}

INSTANTIATE_TEST_SUITE_P(EachClass, FailuresTest, testing::ValuesIn(failures),
                         [](const auto& one) { return std::string(one.param.className + 3); });

}  // namespace
}  // namespace qv::test
