#include "NativeAPI/Properties.h"

#include <gtest/gtest.h>

#include "tests/support/Records.h"
#include "tests/support/ScriptedHost.h"

namespace qv::test {
namespace {

TEST(Properties, PutSystemNamePutsAKeyUnlessThereIsNoHostName) {
    InstanceRecord record("C");
    PutSystemName(record, std::nullopt);
    EXPECT_EQ(record, Record("C", {}));
    PutSystemName(record, "srv");
    EXPECT_EQ(record, Record("C", {Key("SystemName", "srv")}));
}

TEST(Properties, PutCreationClassNamesPutsTheRequestedClassAsSpelledAndTheComputerSystems) {
    InstanceRecord record("qv_X");
    PutCreationClassNames(record);
    EXPECT_EQ(record, Record("qv_X", {Key("CreationClassName", "qv_X"),
                                      Key("SystemCreationClassName", "QV_WinComputerSystem")}));
}

TEST(Properties, PutTextPutsTheSourceTextAndAnEmptyOneWhereItIsMissing) {
    const ScriptedRow row({{"Caption", "disk"}, {"Null", std::monostate{}}, {"Count", 3}});
    InstanceRecord record("C");
    PutText(record, "A", row, "Caption");
    PutText(record, "B", row, "Null");
    PutText(record, "C", row, "Count");
    PutText(record, "D", row, "Missing");
    EXPECT_EQ(record,
              Record("C", {Text("A", "disk"), Text("B", ""), Text("C", ""), Text("D", "")}));
}

TEST(Properties, PutNumberPutsTheSourceNumberAndZeroWhereItIsMissing) {
    const ScriptedRow row({{"Index", 3}, {"Null", std::monostate{}}, {"Caption", "5"}});
    InstanceRecord record("C");
    PutNumber(record, "A", row, "Index");
    PutNumber(record, "B", row, "Null");
    PutNumber(record, "C", row, "Caption");
    PutNumber(record, "D", row, "Missing");
    EXPECT_EQ(record, Record("C", {Number("A", "3"), Number("B", "0"), Number("C", "0"),
                                   Number("D", "0")}));
}

TEST(Properties, PutOperationalStatusPutsTheCodeAlone) {
    InstanceRecord record("C");
    PutOperationalStatus(record, ScriptedRow(Properties{{"Status", "Stressed"}}));
    PutOperationalStatus(record, ScriptedRow(Properties{{"Status", "Starting"}}));
    EXPECT_EQ(record,
              Record("C", {Numbers("OperationalStatus", "3"), Numbers("OperationalStatus", "")}));
}

TEST(Properties, PutStatusPutsTheCodeAndTheText) {
    InstanceRecord record("C");
    PutStatus(record, ScriptedRow(Properties{{"Status", "Lost Comm"}}));
    EXPECT_EQ(record, Record("C", {Numbers("OperationalStatus", "6"),
                                   Texts("StatusDescriptions", "Lost Comm")}));
}

TEST(Properties, PutStatusPutsAnEmptyCodeBesideATextOutsideTheMap) {
    InstanceRecord record("C");
    PutStatus(record, ScriptedRow(Properties{{"Status", "Starting"}}));
    EXPECT_EQ(record, Record("C", {Numbers("OperationalStatus", ""),
                                   Texts("StatusDescriptions", "Starting")}));
}

TEST(Properties, PutStatusPutsTwoEmptyTextsWithoutASourceStatus) {
    InstanceRecord record("C");
    PutStatus(record, ScriptedRow({}));
    EXPECT_EQ(record,
              Record("C", {Numbers("OperationalStatus", ""), Texts("StatusDescriptions", "")}));
}

}  // namespace
}  // namespace qv::test
