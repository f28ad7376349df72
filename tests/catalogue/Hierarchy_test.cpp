#include "catalogue/Hierarchy.h"

#include <gtest/gtest.h>

#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

TEST(Hierarchy, HasTheNodesOfTheCatalogueWithTheirParentsInDefinitionOrder) {
    std::vector<std::pair<std::string, std::string>> nodes;
    for (const ClassNode& node : ClassHierarchy()) {
        nodes.emplace_back(node.name, node.parent == nullptr ? "" : node.parent->name);
    }
    std::vector<std::pair<std::string, std::string>> expected;
    for (const ExpectedNode& node : ExpectedHierarchy()) {
        expected.emplace_back(node.name, node.superclass);
    }
    EXPECT_EQ(nodes, expected);
}

TEST(Hierarchy, FindClassNodeTakesTheNameWithoutRegardToCase) {
    for (const ClassNode& node : ClassHierarchy()) {
        EXPECT_EQ(FindClassNode(node.name), &node) << node.name;
    }
    EXPECT_EQ(FindClassNode("cim_DISKdrive"), FindClassNode("CIM_DiskDrive"));
}

TEST(Hierarchy, FindClassNodeIsNullForAnUnknownName) {
    for (const char* name : {"", "CIM_Disk", "CIM_DiskDrives", "QV_SATAHostedCollection"}) {
        EXPECT_EQ(FindClassNode(name), nullptr) << name;
    }
}

TEST(Hierarchy, IsClassOrAncestorHoldsForTheNodeItselfAndItsWholeChain) {
    const ClassNode* node = FindClassNode("QV_SATADiskDrive");
    for (const char* name : {"QV_SATADiskDrive", "CIM_DiskDrive", "CIM_MediaAccessDevice",
                             "CIM_LogicalDevice", "CIM_EnabledLogicalElement", "CIM_LogicalElement",
                             "CIM_ManagedSystemElement", "CIM_ManagedElement"}) {
        EXPECT_TRUE(IsClassOrAncestor(node, name)) << name;
    }
}

TEST(Hierarchy, IsClassOrAncestorDoesNotHoldForDescendantsSiblingsAndUnknownNames) {
    const ClassNode* node = FindClassNode("CIM_DiskDrive");
    for (const char* name : {"QV_SATADiskDrive", "CIM_StorageExtent", "CIM_Product", "CIM_", ""}) {
        EXPECT_FALSE(IsClassOrAncestor(node, name)) << name;
    }
}

TEST(Hierarchy, IsClassOrAncestorControllerFirmwareIsNoQvSoftwareIdentityButACimOne) {
    const ClassNode* node = FindClassNode("QV_SATAPortControllerFW");
    EXPECT_FALSE(IsClassOrAncestor(node, "QV_SoftwareIdentity"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_SoftwareIdentity"));
    EXPECT_TRUE(IsClassOrAncestor(node, "cim_managedelement"));
}

TEST(Hierarchy, IsClassOrAncestorTakesTheNameWithoutRegardToCase) {
    EXPECT_TRUE(IsClassOrAncestor(FindClassNode("CIM_Product"), "cim_PRODUCT"));
}

TEST(Hierarchy, IsClassOrAncestorDoesNotHoldForANullNode) {
    EXPECT_FALSE(IsClassOrAncestor(nullptr, "CIM_ManagedElement"));
    EXPECT_FALSE(IsClassOrAncestor(nullptr, ""));
}

TEST(Hierarchy, IsClassOrAncestorHoldsOfTheRootOnlyForItsOwnName) {
    const ClassNode* root = FindClassNode("CIM_ManagedElement");
    EXPECT_TRUE(IsClassOrAncestor(root, "CIM_ManagedElement"));
    EXPECT_FALSE(IsClassOrAncestor(root, "CIM_Product"));
}

}  // namespace
}  // namespace qv::test
