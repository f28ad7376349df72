#include "catalogue/Associations.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

constexpr std::string_view parametersInDispatchOrder = R"(
QV_WinComputerSystemSATAPortController
  GroupComponent: QV_WinComputerSystem (Name)
  PartComponent: QV_SATAPortController (SystemName), rule 1
QV_SATAPortControllerSATALogicalPort
  Antecedent: QV_SATAPortController (DeviceID)
  Dependent: QV_SATALogicalPort (DeviceID), rule 7
QV_SATAPortControllerPhysicalPackageSATAControllerLocation
  Element: QV_SATAPortControllerPhysicalPackage (Tag)
  PhysicalLocation: QV_SATAControllerLocation (Name), rule 1
QV_SATAPortControllerProductSATAPortControllerPhysicalPackage
  GroupComponent: QV_SATAPortControllerProduct (Name)
  PartComponent: QV_SATAPortControllerPhysicalPackage (Tag), rule 1
QV_SATAPortControllerProductSATAPortController
  GroupComponent: QV_SATAPortControllerProduct (Name)
  PartComponent: QV_SATAPortController (DeviceID), rule 1
QV_SATAPortControllerPhysicalPackageSATAPortController
  Antecedent: QV_SATAPortControllerPhysicalPackage (Tag)
  Dependent: QV_SATAPortController (DeviceID), rule 1
QV_WinComputerSystemSATAStorageExtent
  GroupComponent: QV_WinComputerSystem (Name)
  PartComponent: QV_SATAStorageExtent (SystemName), rule 1
QV_WinComputerSystemSATADiskDrive
  GroupComponent: QV_WinComputerSystem (Name)
  PartComponent: QV_SATADiskDrive (SystemName), rule 1
QV_WinComputerSystemSATALogicalPort
  GroupComponent: QV_WinComputerSystem (Name)
  PartComponent: QV_SATALogicalPort (SystemName), rule 1
QV_SATADiskDriveStorageExtent
  Antecedent: QV_SATADiskDrive (DeviceID)
  Dependent: QV_SATAStorageExtent (DeviceID), rule 1
QV_SATADiskPhysicalPackageSATADiskDrive
  Antecedent: QV_SATADiskPhysicalPackage (Tag)
  Dependent: QV_SATADiskDrive (DeviceID), rule 1
QV_SATADiskPhysicalPackageSATADiskLocation
  Element: QV_SATADiskPhysicalPackage (Tag)
  PhysicalLocation: QV_SATADiskLocation (Name), rule 1
QV_SATADiskDriveDiskDriveFW
  Antecedent: QV_SATADiskDriveFW (InstanceID)
  Dependent: QV_SATADiskDrive (DeviceID), rule 1
  ElementSoftwareStatus = 2*-*6 (type 19)
QV_TSATAProtocolEndpointSATADiskDrive
  AvailableSAP: QV_TSATAProtocolEndpoint (Name)
  ManagedElement: QV_SATADiskDrive (DeviceID), rule 6
QV_SATALogicalPortISATAProtocolEndpoint
  Antecedent: QV_SATALogicalPort (DeviceID)
  Dependent: QV_ISATAProtocolEndpoint (Name), rule 6
QV_SATAInitiatorTargetLogicalUnitPath
  Initiator: QV_ISATAProtocolEndpoint (Name)
  Target: QV_TSATAProtocolEndpoint (Name), rule 7
  LogicalUnit: QV_SATAStorageExtent (DeviceID), rule 10
  State = 2 (type 8)
QV_SATAStorageCollectionSATADiskDrive
  Collection: QV_SATAStorageCollection (InstanceID)
  Member: QV_SATADiskDrive (SystemName), rule 6
QV_SATAHostedCollection
  Antecedent: QV_WinComputerSystem (Name)
  Dependent: QV_SATAStorageCollection (InstanceID), rule 7
QV_SATAPortControllerFWSATAPortController
  Antecedent: QV_SATAPortControllerFW (InstanceID)
  Dependent: QV_SATAPortController (DeviceID), rule 6
  ElementSoftwareStatus = 2*-*6 (type 19)
QV_SATAPortControllerDriverSATAPortController
  Antecedent: QV_SATAPortControllerDriver (InstanceID)
  Dependent: QV_SATAPortController (DeviceID), rule 6
  ElementSoftwareStatus = 2*-*6 (type 19)
QV_SATAPortControllerBIOSSATAPortController
  Antecedent: QV_SATAPortControllerBIOS (InstanceID)
  Dependent: QV_SATAPortController (DeviceID), rule 6
  ElementSoftwareStatus = 2*-*6 (type 19)
)";

std::string Printed(const AssociationEnd& end) {
    return "\n  " + std::string(end.role) + ": " + std::string(end.className) + " (" +
           std::string(end.key) + ")";
}

std::string Printed(MatchRule rule) {
    return ", rule " + std::to_string(static_cast<std::uint32_t>(rule));
}

std::string Printed(const FixedProperty& added) {
    return "\n  " + std::string(added.name) + " = " + std::string(added.value) + " (type " +
           std::to_string(static_cast<std::uint32_t>(added.type)) + ")";
}

TEST(Associations, HaveTheseParameters) {
    std::string printed = "\n";
    for (const Association& one : associations) {
        printed += one.name;
        printed += Printed(one.first) + Printed(one.second) + Printed(one.rule);
        printed += one.HasThreeEnds() ? Printed(one.third) + Printed(one.thirdRule) : "";
        printed += one.added.name.empty() ? "" : Printed(one.added);
        printed += "\n";
    }
    EXPECT_EQ(printed, parametersInDispatchOrder);
    EXPECT_EQ(associations.size(), 21U);
}

}  // namespace
}  // namespace qv
