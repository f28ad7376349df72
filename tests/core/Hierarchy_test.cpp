#include "catalogue/Hierarchy.h"

#include <gtest/gtest.h>

#include <string>

namespace qv {
namespace {

constexpr std::string_view classesAndTheirParents = R"(
CIM_ManagedElement:
CIM_ManagedSystemElement: CIM_ManagedElement
CIM_LogicalElement: CIM_ManagedSystemElement
CIM_EnabledLogicalElement: CIM_LogicalElement
CIM_LogicalDevice: CIM_EnabledLogicalElement
CIM_Controller: CIM_LogicalDevice
CIM_PortController: CIM_Controller
QV_SATAPortController: CIM_PortController
CIM_System: CIM_EnabledLogicalElement
CIM_ComputerSystem: CIM_System
QV_ComputerSystem: CIM_ComputerSystem
QV_WinComputerSystem: QV_ComputerSystem
CIM_MediaAccessDevice: CIM_LogicalDevice
CIM_DiskDrive: CIM_MediaAccessDevice
QV_SATADiskDrive: CIM_DiskDrive
CIM_StorageExtent: CIM_LogicalDevice
QV_SATAStorageExtent: CIM_StorageExtent
CIM_SoftwareIdentity: CIM_LogicalElement
QV_SATADiskDriveFW: CIM_SoftwareIdentity
CIM_PhysicalElement: CIM_ManagedSystemElement
CIM_PhysicalPackage: CIM_PhysicalElement
QV_SATAPortControllerPhysicalPackage: CIM_PhysicalPackage
QV_SATADiskPhysicalPackage: CIM_PhysicalPackage
CIM_Collection: CIM_ManagedElement
CIM_SystemSpecificCollection: CIM_Collection
QV_GroupSystemSpecificCollection: CIM_SystemSpecificCollection
QV_SATAStorageCollection: QV_GroupSystemSpecificCollection
CIM_Location: CIM_ManagedElement
QV_SATADiskLocation: CIM_Location
QV_SATAControllerLocation: CIM_Location
CIM_Product: CIM_ManagedElement
QV_SATAPortControllerProduct: CIM_Product
CIM_LogicalPort: CIM_LogicalDevice
QV_SATALogicalPort: CIM_LogicalPort
CIM_ServiceAccessPoint: CIM_EnabledLogicalElement
CIM_ProtocolEndpoint: CIM_ServiceAccessPoint
QV_ISATAProtocolEndpoint: CIM_ProtocolEndpoint
QV_TSATAProtocolEndpoint: CIM_ProtocolEndpoint
QV_SoftwareIdentity: CIM_SoftwareIdentity
QV_SATAPortControllerDriver: CIM_SoftwareIdentity
QV_SATAPortControllerFW: CIM_SoftwareIdentity
QV_SATAPortControllerBIOS: CIM_SoftwareIdentity
)";

TEST(ClassHierarchy, Has42NodesWithTheirParentsInDefinitionOrder) {
    std::string table = "\n";
    for (const ClassNode& node : ClassHierarchy()) {
        table.append(node.name).append(":");
        if (node.parent != nullptr) {
            table.append(" ").append(node.parent->name);
        }
        table.append("\n");
    }
    EXPECT_EQ(table, classesAndTheirParents);
    EXPECT_EQ(ClassHierarchy().size(), 42U);
}

TEST(FindClassNode, TakesTheNameWithoutRegardToCase) {
    for (const ClassNode& node : ClassHierarchy()) {
        EXPECT_EQ(FindClassNode(node.name), &node) << node.name;
    }
    EXPECT_EQ(FindClassNode("cim_DISKdrive"), FindClassNode("CIM_DiskDrive"));
}

TEST(FindClassNode, IsNullForAnUnknownName) {
    for (const char* name : {"", "CIM_Disk", "CIM_DiskDrives", "QV_SATAHostedCollection"}) {
        EXPECT_EQ(FindClassNode(name), nullptr) << name;
    }
}

TEST(IsClassOrAncestor, HoldsForTheNodeItselfAndItsWholeChain) {
    const ClassNode* node = FindClassNode("QV_SATADiskDrive");
    for (const char* name : {"QV_SATADiskDrive", "CIM_DiskDrive", "CIM_MediaAccessDevice",
                             "CIM_LogicalDevice", "CIM_EnabledLogicalElement", "CIM_LogicalElement",
                             "CIM_ManagedSystemElement", "CIM_ManagedElement"}) {
        EXPECT_TRUE(IsClassOrAncestor(node, name)) << name;
    }
}

TEST(IsClassOrAncestor, DoesNotHoldForDescendantsSiblingsAndUnknownNames) {
    const ClassNode* node = FindClassNode("CIM_DiskDrive");
    for (const char* name : {"QV_SATADiskDrive", "CIM_StorageExtent", "CIM_Product", "CIM_", ""}) {
        EXPECT_FALSE(IsClassOrAncestor(node, name)) << name;
    }
}

TEST(IsClassOrAncestor, ControllerFirmwareIsNoQvSoftwareIdentityButACimOne) {
    const ClassNode* node = FindClassNode("QV_SATAPortControllerFW");
    EXPECT_FALSE(IsClassOrAncestor(node, "QV_SoftwareIdentity"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_SoftwareIdentity"));
    EXPECT_TRUE(IsClassOrAncestor(node, "cim_managedelement"));
}

TEST(IsClassOrAncestor, TakesTheNameWithoutRegardToCase) {
    EXPECT_TRUE(IsClassOrAncestor(FindClassNode("CIM_Product"), "cim_PRODUCT"));
}

TEST(IsClassOrAncestor, DoesNotHoldForANullNode) {
    EXPECT_FALSE(IsClassOrAncestor(nullptr, "CIM_ManagedElement"));
    EXPECT_FALSE(IsClassOrAncestor(nullptr, ""));
}

TEST(IsClassOrAncestor, HoldsOfTheRootOnlyForItsOwnName) {
    const ClassNode* root = FindClassNode("CIM_ManagedElement");
    EXPECT_TRUE(IsClassOrAncestor(root, "CIM_ManagedElement"));
    EXPECT_FALSE(IsClassOrAncestor(root, "CIM_Product"));
}

}  // namespace
}  // namespace qv
