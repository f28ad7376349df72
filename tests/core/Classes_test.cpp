#include "catalogue/Classes.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr std::string_view namesInDispatchOrder = R"(
QV_SATAPortController
QV_SATADiskDrive
QV_SATAStorageExtent
QV_SATADiskDriveFW
QV_SATAPortControllerPhysicalPackage
QV_SATADiskPhysicalPackage
QV_SATAStorageCollection
QV_SATADiskLocation
QV_SATAControllerLocation
QV_SATAPortControllerProduct
QV_SATALogicalPort
QV_ISATAProtocolEndpoint
QV_TSATAProtocolEndpoint
QV_SATAPortControllerDriver
QV_SATAPortControllerFW
QV_SATAPortControllerBIOS
QV_WinComputerSystem
QV_WinComputerSystemSATAPortController
QV_SATAPortControllerSATALogicalPort
QV_SATAPortControllerPhysicalPackageSATAControllerLocation
QV_SATAPortControllerProductSATAPortControllerPhysicalPackage
QV_SATAPortControllerProductSATAPortController
QV_SATAPortControllerPhysicalPackageSATAPortController
QV_WinComputerSystemSATAStorageExtent
QV_WinComputerSystemSATADiskDrive
QV_WinComputerSystemSATALogicalPort
QV_SATADiskDriveStorageExtent
QV_SATADiskPhysicalPackageSATADiskDrive
QV_SATADiskPhysicalPackageSATADiskLocation
QV_SATADiskDriveDiskDriveFW
QV_TSATAProtocolEndpointSATADiskDrive
QV_SATALogicalPortISATAProtocolEndpoint
QV_SATAInitiatorTargetLogicalUnitPath
QV_SATAStorageCollectionSATADiskDrive
QV_SATAHostedCollection
QV_SATAPortControllerFWSATAPortController
QV_SATAPortControllerDriverSATAPortController
QV_SATAPortControllerBIOSSATAPortController
)";

TEST(PublishedClasses, AreThe38InDispatchOrder) {
    std::string names = "\n";
    for (const PublishedClass& one : PublishedClasses()) {
        names.append(one.name).append("\n");
    }
    EXPECT_EQ(names, namesInDispatchOrder);
    EXPECT_EQ(PublishedClasses().size(), 38U);
}

TEST(PublishedClasses, TheFirst17AreInstanceClassesTheOthersAssociations) {
    EXPECT_EQ(instanceClassCount, 17U);
    EXPECT_EQ(PublishedClasses()[instanceClassCount - 1].name, "QV_WinComputerSystem");
}

}  // namespace
}  // namespace qv
