#include "catalogue/Hierarchy.h"

#include <gmock/gmock.h>

#include "tests/support/ExpectedCatalogue.h"

namespace qv::test {
namespace {

using testing::Each;
using testing::Truly;

// Classes and their parents.
using NodeList = std::vector<std::pair<std::string, std::string>>;

NodeList Nodes() {
    NodeList nodes;
    for (const ClassNode& node : ClassHierarchy()) {
        nodes.emplace_back(node.name, node.parent == nullptr ? "" : node.parent->name);
    }
    return nodes;
}

NodeList ExpectedNodes() {
    NodeList nodes;
    for (const ExpectedNode& node : ExpectedHierarchy()) {
        nodes.emplace_back(node.name, node.superclass);
    }
    return nodes;
}

TEST(Hierarchy, HasTheNodesOfTheCatalogueWithTheirParentsInDefinitionOrder) {
    EXPECT_EQ(Nodes(), ExpectedNodes());
}

TEST(Hierarchy, FindClassNodeFindsEachNode) {
    EXPECT_THAT(
        ClassHierarchy(),
        Each(Truly([](const ClassNode& node) { return FindClassNode(node.name) == &node; })));
}

TEST(Hierarchy, FindClassNodeTakesTheNameWithoutRegardToCase) {
    EXPECT_EQ(FindClassNode("cim_DISKdrive"), FindClassNode("CIM_DiskDrive"));
}

TEST(Hierarchy, FindClassNodeIsNullForAnUnknownName) {
    EXPECT_EQ(FindClassNode(""), nullptr);
    EXPECT_EQ(FindClassNode("CIM_Disk"), nullptr);
    EXPECT_EQ(FindClassNode("CIM_DiskDrives"), nullptr);
    EXPECT_EQ(FindClassNode("QV_SATAHostedCollection"), nullptr);
}

TEST(Hierarchy, IsClassOrAncestorHoldsForTheNodeItselfAndItsWholeChain) {
    const ClassNode* node = FindClassNode("QV_SATADiskDrive");
    EXPECT_TRUE(IsClassOrAncestor(node, "QV_SATADiskDrive"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_DiskDrive"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_MediaAccessDevice"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_LogicalDevice"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_EnabledLogicalElement"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_LogicalElement"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_ManagedSystemElement"));
    EXPECT_TRUE(IsClassOrAncestor(node, "CIM_ManagedElement"));
}

TEST(Hierarchy, IsClassOrAncestorDoesNotHoldForDescendantsSiblingsAndUnknownNames) {
    const ClassNode* node = FindClassNode("CIM_DiskDrive");
    EXPECT_FALSE(IsClassOrAncestor(node, "QV_SATADiskDrive"));
    EXPECT_FALSE(IsClassOrAncestor(node, "CIM_StorageExtent"));
    EXPECT_FALSE(IsClassOrAncestor(node, "CIM_Product"));
    EXPECT_FALSE(IsClassOrAncestor(node, "CIM_"));
    EXPECT_FALSE(IsClassOrAncestor(node, ""));
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
