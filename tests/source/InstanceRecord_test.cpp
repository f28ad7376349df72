#include "source/InstanceRecord.h"

#include <gtest/gtest.h>

#include "tests/support/Records.h"

namespace qv::test {
namespace {

TEST(InstanceRecord, PropertyTypeCodesAreThePublishedOnes) {
    const auto code = [](PropertyType type) { return static_cast<std::uint32_t>(type); };
    EXPECT_EQ(code(PropertyType::untyped), 0U);
    EXPECT_EQ(code(PropertyType::uint8), 7U);
    EXPECT_EQ(code(PropertyType::int32), 8U);
    EXPECT_EQ(code(PropertyType::integer), 9U);
    EXPECT_EQ(code(PropertyType::text), 10U);
    EXPECT_EQ(code(PropertyType::boolean), 11U);
    EXPECT_EQ(code(PropertyType::reference), 14U);
    EXPECT_EQ(code(PropertyType::string), 16U);
    EXPECT_EQ(code(PropertyType::stringArray), 17U);
    EXPECT_EQ(code(PropertyType::int32Array), 19U);
    EXPECT_EQ(code(PropertyType::textArray), 21U);
}

TEST(InstanceRecord, StartsWithItsClassNameAndNoProperties) {
    const InstanceRecord record("qv_SATAdiskDRIVE");
    EXPECT_EQ(record.className, "qv_SATAdiskDRIVE");
    EXPECT_TRUE(record.properties.empty());
}

TEST(InstanceRecord, SetPropertyAppendsAStringThatIsNoKey) {
    InstanceRecord record("C");
    SetProperty(record, "Caption", "disk");
    EXPECT_EQ(record, Record("C", {{"Caption", "disk", PropertyType::string, false}}));
}

TEST(InstanceRecord, SetPropertyAppendsTheGivenType) {
    InstanceRecord record("C");
    SetProperty(record, "Index", "3", PropertyType::int32);
    SetProperty(record, "Other", "x", static_cast<PropertyType>(99));
    EXPECT_EQ(record, Record("C", {{"Index", "3", PropertyType::int32, false},
                                   {"Other", "x", static_cast<PropertyType>(99), false}}));
}

TEST(InstanceRecord, SetKeyPropertyAppendsAStringKey) {
    InstanceRecord record("C");
    SetKeyProperty(record, "DeviceID", "IDE&X");
    EXPECT_EQ(record, Record("C", {{"DeviceID", "IDE&X", PropertyType::string, true}}));
}

TEST(InstanceRecord, SetKeyReferenceAppendsAReferenceKey) {
    InstanceRecord record("C");
    SetKeyReference(record, "Antecedent", "D.K=\"v\"");
    EXPECT_EQ(record, Record("C", {{"Antecedent", "D.K=\"v\"", PropertyType::reference, true}}));
}

TEST(InstanceRecord, SetPropertyASecondPutOfANameAppendsASecondEntry) {
    InstanceRecord record("C");
    SetProperty(record, "Name", "first");
    SetKeyProperty(record, "Name", "second");
    EXPECT_EQ(record, Record("C", {{"Name", "first", PropertyType::string, false},
                                   {"Name", "second", PropertyType::string, true}}));
}

TEST(InstanceRecord, AppendRecordAddsToTheEndOfTheList) {
    RecordList list;
    AppendRecord(list, Record("A", {}));
    AppendRecord(list, Record("B", {Key("K", "v")}));
    EXPECT_EQ(list, (RecordList{Record("A", {}), Record("B", {Key("K", "v")})}));
}

TEST(InstanceRecord, GetPropertyEntryGivesTheFirstEntryOfTheName) {
    InstanceRecord record("C");
    SetProperty(record, "Other", "x");
    SetProperty(record, "Name", "first", PropertyType::int32);
    SetProperty(record, "Name", "second");
    EXPECT_EQ(GetPropertyEntry(record, "Name"),
              (PropertyEntry{"Name", "first", PropertyType::int32, false}));
}

TEST(InstanceRecord, GetPropertyEntryTakesTheNameWithRegardToCase) {
    InstanceRecord record("C");
    SetProperty(record, "Name", "x");
    EXPECT_EQ(GetPropertyEntry(record, "name"), PropertyEntry{});
}

TEST(InstanceRecord, GetPropertyEntryIsEmptyWhenThereIsNone) {
    const PropertyEntry missing = GetPropertyEntry(InstanceRecord("C"), "Name");
    EXPECT_EQ(missing.name, "");
    EXPECT_EQ(missing.value, "");
    EXPECT_FALSE(missing.key);
}

TEST(InstanceRecord, BuildObjectPathListsKeysInTheOrderInWhichTheyWerePut) {
    InstanceRecord record("QV_SATADiskDrive");
    SetKeyProperty(record, "CreationClassName", "QV_SATADiskDrive");
    SetProperty(record, "Caption", "not a key");
    SetKeyProperty(record, "DeviceID", "IDE&X");
    SetKeyProperty(record, "SystemCreationClassName", "QV_WinComputerSystem");
    SetKeyProperty(record, "SystemName", "srv");
    EXPECT_EQ(BuildObjectPath(record),
              R"(QV_SATADiskDrive.CreationClassName="QV_SATADiskDrive",DeviceID="IDE&X",)"
              R"(SystemCreationClassName="QV_WinComputerSystem",SystemName="srv")");
}

TEST(InstanceRecord, BuildObjectPathDoesNotSortKeysByName) {
    InstanceRecord record("C");
    SetKeyProperty(record, "Zeta", "1");
    SetKeyProperty(record, "Alpha", "2");
    EXPECT_EQ(BuildObjectPath(record), R"(C.Zeta="1",Alpha="2")");
}

TEST(InstanceRecord, BuildObjectPathWritesABackslashBeforeADoubleQuoteInsideAValue) {
    InstanceRecord record("C");
    SetKeyProperty(record, "K", R"(a"b"")");
    EXPECT_EQ(BuildObjectPath(record), R"(C.K="a\"b\"\"")");
}

TEST(InstanceRecord, BuildObjectPathLeavesBackslashesAsTheyStand) {
    InstanceRecord record("C");
    SetKeyProperty(record, "K", R"(\\.\X)");
    EXPECT_EQ(BuildObjectPath(record), R"(C.K="\\.\X")");
}

TEST(InstanceRecord, BuildObjectPathTakesReferenceKeysToo) {
    InstanceRecord record("A");
    SetKeyReference(record, "Antecedent", R"(D.K="v")");
    SetKeyReference(record, "Dependent", R"(E.K="w")");
    EXPECT_EQ(BuildObjectPath(record), R"(A.Antecedent="D.K=\"v\"",Dependent="E.K=\"w\"")");
}

TEST(InstanceRecord, BuildObjectPathOfARecordWithoutKeysIsTheClassAndADot) {
    InstanceRecord record("C");
    SetProperty(record, "Caption", "x");
    EXPECT_EQ(BuildObjectPath(record), "C.");
}

TEST(InstanceRecord, BuildObjectPathKeepsTheClassNameAsSpelledAndEmptyValues) {
    InstanceRecord record("qv_X");
    SetKeyProperty(record, "K", "");
    EXPECT_EQ(BuildObjectPath(record), R"(qv_X.K="")");
}

}  // namespace
}  // namespace qv::test
