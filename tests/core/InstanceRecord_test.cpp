#include "source/InstanceRecord.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

TEST(BuildObjectPath, ListsKeysInTheOrderInWhichTheyWerePut) {
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

}  // namespace
}  // namespace qv
