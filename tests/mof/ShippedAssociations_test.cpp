#include <gmock/gmock.h>

#include <algorithm>

#include "catalogue/Classes.h"
#include "tests/mof/ShippedFiles.h"

namespace qv::service {
namespace {

struct Reference {
    const char* role;
    const char* className;
};

struct Association {
    const char* name;
    const char* superclass;
    std::vector<Reference> references;
};

const std::vector<Association>& Expected() {
    static const std::vector<Association> expected{
        {"QV_WinComputerSystemSATAPortController",
         "CIM_SystemDevice",
         {{"GroupComponent", "QV_WinComputerSystem"}, {"PartComponent", "QV_SATAPortController"}}},
        {"QV_SATAPortControllerSATALogicalPort",
         "CIM_ControlledBy",
         {{"Antecedent", "QV_SATAPortController"}, {"Dependent", "QV_SATALogicalPort"}}},
        {"QV_SATAPortControllerPhysicalPackageSATAControllerLocation",
         "CIM_ElementLocation",
         {{"Element", "QV_SATAPortControllerPhysicalPackage"},
          {"PhysicalLocation", "QV_SATAControllerLocation"}}},
        {"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage",
         "CIM_ProductPhysicalComponent",
         {{"GroupComponent", "QV_SATAPortControllerProduct"},
          {"PartComponent", "QV_SATAPortControllerPhysicalPackage"}}},
        {"QV_SATAPortControllerProductSATAPortController",
         "CIM_ProductElementComponent",
         {{"GroupComponent", "QV_SATAPortControllerProduct"},
          {"PartComponent", "QV_SATAPortController"}}},
        {"QV_SATAPortControllerPhysicalPackageSATAPortController",
         "CIM_Realizes",
         {{"Antecedent", "QV_SATAPortControllerPhysicalPackage"},
          {"Dependent", "QV_SATAPortController"}}},
        {"QV_WinComputerSystemSATAStorageExtent",
         "CIM_SystemDevice",
         {{"GroupComponent", "QV_WinComputerSystem"}, {"PartComponent", "QV_SATAStorageExtent"}}},
        {"QV_WinComputerSystemSATADiskDrive",
         "CIM_SystemDevice",
         {{"GroupComponent", "QV_WinComputerSystem"}, {"PartComponent", "QV_SATADiskDrive"}}},
        {"QV_WinComputerSystemSATALogicalPort",
         "CIM_SystemDevice",
         {{"GroupComponent", "QV_WinComputerSystem"}, {"PartComponent", "QV_SATALogicalPort"}}},
        {"QV_SATADiskDriveStorageExtent",
         "CIM_MediaPresent",
         {{"Antecedent", "QV_SATADiskDrive"}, {"Dependent", "QV_SATAStorageExtent"}}},
        {"QV_SATADiskPhysicalPackageSATADiskDrive",
         "CIM_Realizes",
         {{"Antecedent", "QV_SATADiskPhysicalPackage"}, {"Dependent", "QV_SATADiskDrive"}}},
        {"QV_SATADiskPhysicalPackageSATADiskLocation",
         "CIM_ElementLocation",
         {{"Element", "QV_SATADiskPhysicalPackage"}, {"PhysicalLocation", "QV_SATADiskLocation"}}},
        {"QV_SATADiskDriveDiskDriveFW",
         "CIM_ElementSoftwareIdentity",
         {{"Antecedent", "QV_SATADiskDriveFW"}, {"Dependent", "QV_SATADiskDrive"}}},
        {"QV_TSATAProtocolEndpointSATADiskDrive",
         "CIM_SAPAvailableForElement",
         {{"AvailableSAP", "QV_TSATAProtocolEndpoint"}, {"ManagedElement", "QV_SATADiskDrive"}}},
        {"QV_SATALogicalPortISATAProtocolEndpoint",
         "CIM_PortImplementsEndpoint",
         {{"Antecedent", "QV_SATALogicalPort"}, {"Dependent", "QV_ISATAProtocolEndpoint"}}},
        {"QV_SATAInitiatorTargetLogicalUnitPath",
         "CIM_InitiatorTargetLogicalUnitPath",
         {{"Initiator", "QV_ISATAProtocolEndpoint"},
          {"Target", "QV_TSATAProtocolEndpoint"},
          {"LogicalUnit", "QV_SATAStorageExtent"}}},
        {"QV_SATAStorageCollectionSATADiskDrive",
         "CIM_MemberOfCollection",
         {{"Collection", "QV_SATAStorageCollection"}, {"Member", "QV_SATADiskDrive"}}},
        {"QV_SATAHostedCollection",
         "CIM_HostedCollection",
         {{"Antecedent", "QV_WinComputerSystem"}, {"Dependent", "QV_SATAStorageCollection"}}},
        {"QV_SATAPortControllerFWSATAPortController",
         "CIM_ElementSoftwareIdentity",
         {{"Antecedent", "QV_SATAPortControllerFW"}, {"Dependent", "QV_SATAPortController"}}},
        {"QV_SATAPortControllerDriverSATAPortController",
         "CIM_ElementSoftwareIdentity",
         {{"Antecedent", "QV_SATAPortControllerDriver"}, {"Dependent", "QV_SATAPortController"}}},
        {"QV_SATAPortControllerBIOSSATAPortController",
         "CIM_ElementSoftwareIdentity",
         {{"Antecedent", "QV_SATAPortControllerBIOS"}, {"Dependent", "QV_SATAPortController"}}},
    };
    return expected;
}

std::vector<PropertyDefinition> References(const std::string& className) {
    auto properties = ShippedRepository().Properties(className);
    std::erase_if(properties, [](const PropertyDefinition& property) {
        return property.type != CimType::reference;
    });
    return properties;
}

TEST(ShippedAssociations, StandInTheOrderOfTheCatalogue) {
    const auto published = PublishedClasses().subspan(instanceClassCount);
    ASSERT_EQ(Expected().size(), published.size());
    EXPECT_TRUE(std::ranges::equal(Expected(), published, {}, &Association::name,
                                   [](const PublishedClass& one) { return one.name; }));
}

TEST(ShippedAssociations, ReferToTheEndpointsOfTheirRoles) {
    for (const Association& row : Expected()) {
        const auto references = References(row.name);
        ASSERT_EQ(references.size(), row.references.size()) << row.name;
        for (std::size_t at = 0; at < references.size(); ++at) {
            EXPECT_EQ(references[at].name, row.references[at].role) << row.name;
            EXPECT_EQ(references[at].referenceClass, row.references[at].className) << row.name;
            EXPECT_TRUE(references[at].isKey) << row.name;
        }
    }
}

TEST(ShippedAssociations, DeriveFromTheCimAssociationOfTheirKind) {
    for (const Association& row : Expected()) {
        EXPECT_EQ(ShippedRepository().Find(row.name)->superclass, row.superclass) << row.name;
    }
}

TEST(ShippedAssociations, ShowInstancesAndSubclassesThatTheyAreAssociations) {
    for (const Association& row : Expected()) {
        const Qualifier* const association =
            FindQualifier(ShippedRepository().Find(row.name)->qualifiers, "Association");
        ASSERT_NE(association, nullptr) << row.name;
        EXPECT_TRUE(association->toInstance) << row.name;
        EXPECT_TRUE(association->toSubclass) << row.name;
    }
}

TEST(ShippedAssociations, AreTheOnlyClassesWithReferences) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        EXPECT_EQ(!References(definition.name).empty(),
                  ShippedRepository().ClassQualifier(definition.name, "Association") != nullptr)
            << definition.name;
    }
}

}  // namespace
}  // namespace qv::service
