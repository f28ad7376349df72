#include <gtest/gtest.h>

#include "tests/support/Builders.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/Records.h"

namespace qv::test {
namespace {

using Values = std::vector<std::string>;
using Codes = std::vector<std::int32_t>;

constexpr const char* storageCollectionClass = "QV_SATAStorageCollection";

class SATAStorageCollectionTest : public testing::Test, public Builders {
public:
    // Makes the host publish disks with these OperationalStatus values.
    SATAStorageCollectionTest& WithDisks(std::vector<platform::Value> statuses) {
        std::vector<Properties> rows;
        for (platform::Value& status : statuses) {
            rows.push_back({{"OperationalStatus", std::move(status)}});
        }
        host.Answer(publishedDisksQuery, std::move(rows));
        return *this;
    }

    // Returns the code and the text of the group.
    Values Status() {
        const RecordList records = All(storageCollectionClass);
        return {ValuesOf(records, "GroupOperationalStatus").at(0),
                ValuesOf(records, "GroupStatusDescriptions").at(0)};
    }
};

TEST_F(SATAStorageCollectionTest, HasItsPropertiesInOrder) {
    EXPECT_EQ(WithDisks({Codes{3}}).All(storageCollectionClass),
              RecordList{ExpectedRecord(storageCollectionClass)});
}

TEST_F(SATAStorageCollectionTest, AsksThePublishedNamespaceForTheDisks) {
    WithDisks({}).All(storageCollectionClass);
    EXPECT_EQ(host.asked, Values{"root\\QVQ: SELECT * FROM QV_SATADiskDrive"});
}

TEST_F(SATAStorageCollectionTest, IsNoneWhenThePublishedDisksCannotBeHad) {
    EXPECT_EQ(All(storageCollectionClass), RecordList{});
}

TEST_F(SATAStorageCollectionTest, LeavesInstanceIDOutWithoutAHostName) {
    ForgetHostName();
    EXPECT_EQ(NamesOf(WithDisks({}).All(storageCollectionClass).at(0)),
              (Values{"Caption", "Description", "ElementName", "GroupOperationalStatus",
                      "GroupStatusDescriptions"}));
}

TEST_F(SATAStorageCollectionTest, IgnoresModeAndPath) {
    WithDisks({Codes{6}});
    EXPECT_EQ(Keys(storageCollectionClass), All(storageCollectionClass));
    EXPECT_EQ(At(storageCollectionClass, R"(QV_SATAStorageCollection.InstanceID="other")"),
              All(storageCollectionClass));
}

TEST_F(SATAStorageCollectionTest, InstanceIDNamesTheClassWhateverWasAskedFor) {
    const RecordList records = WithDisks({}).All("qv_satastoragecollection");
    EXPECT_EQ(records.at(0).className, "qv_satastoragecollection");
    EXPECT_EQ(ValuesOf(records, "InstanceID"),
              Values{"host.example.org QV:QV_SATAStorageCollection"});
}

TEST_F(SATAStorageCollectionTest, OfNoDisksIsOk) {
    EXPECT_EQ(WithDisks({}).Status(), (Values{"2", "OK"}));
}

TEST_F(SATAStorageCollectionTest, RollsUpTheDisksInTheirOrder) {
    EXPECT_EQ(WithDisks({Codes{2}, Codes{2}, Codes{6}}).Status(), (Values{"6", "Error"}));
    EXPECT_EQ(WithDisks({Codes{2}, Codes{6}, Codes{2}}).Status(), (Values{"2", "OK"}));
    EXPECT_EQ(WithDisks({Codes{3}, Codes{0}}).Status(), (Values{"3", "Degraded"}));
}

TEST_F(SATAStorageCollectionTest, ADiskWithoutStatusRepeatsThePreviousOne) {
    EXPECT_EQ(WithDisks({Codes{6}, Codes{}}).Status(), (Values{"6", "Error"}));
    EXPECT_EQ(WithDisks({Codes{3}, std::monostate{}}).Status(), (Values{"3", "Degraded"}));
    EXPECT_EQ(WithDisks({Codes{6}, Codes{3}, "no array"}).Status(), (Values{"3", "Degraded"}));
}

TEST_F(SATAStorageCollectionTest, TakesTheFirstElementOfAStatus) {
    EXPECT_EQ(WithDisks({Codes{3, 6}}).Status(), (Values{"3", "Degraded"}));
}

TEST_F(SATAStorageCollectionTest, TakesSixteenBitCodesToo) {
    EXPECT_EQ(WithDisks({std::vector<std::uint16_t>{6}}).Status(), (Values{"6", "Error"}));
}

}  // namespace
}  // namespace qv::test
