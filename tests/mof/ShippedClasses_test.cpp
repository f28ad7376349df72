#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "catalogue/Classes.h"
#include "catalogue/Hierarchy.h"
#include "tests/mof/ShippedFiles.h"

namespace qv::service {
namespace {

using testing::ElementsAreArray;

bool IsOurs(const ClassDefinition& definition) {
    return definition.name.starts_with("QV_");
}

std::vector<std::string> KeyNames(const std::string& className) {
    std::vector<std::string> names;
    for (const PropertyDefinition& key : ShippedRepository().Keys(className)) {
        names.push_back(key.name);
    }
    std::ranges::sort(names);
    return names;
}

/// A property's type as it is declared, "uint16[]"; empty when the class does not have it.
std::string TypeOf(const std::string& className, const std::string& property) {
    for (const PropertyDefinition& one : ShippedRepository().Properties(className)) {
        if (one.name == property) {
            return std::string(CimTypeName(one.type)) + (one.isArray ? "[]" : "");
        }
    }
    return {};
}

TEST(ShippedClasses, DefineEveryPublishedClassAsDynamic) {
    for (const PublishedClass& published : PublishedClasses()) {
        const ClassDefinition* const definition = ShippedRepository().Find(published.name);
        ASSERT_NE(definition, nullptr) << published.name;
        EXPECT_EQ(definition->name, published.name);
        const Qualifier* const dynamic = FindQualifier(definition->qualifiers, "dynamic");
        ASSERT_NE(dynamic, nullptr) << published.name;
        EXPECT_TRUE(dynamic->toInstance) << published.name;
        const Qualifier* const provider = FindQualifier(definition->qualifiers, "provider");
        ASSERT_NE(provider, nullptr) << published.name;
        EXPECT_EQ(provider->value, CimValue("QVWMISATA_InstProv")) << published.name;
        EXPECT_TRUE(provider->toInstance) << published.name;
    }
}

TEST(ShippedClasses, AreDynamicOnlyWhenTheyArePublished) {
    std::size_t dynamic = 0;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        dynamic += HasQualifier(definition.qualifiers, "dynamic") ? 1U : 0U;
    }
    EXPECT_EQ(dynamic, PublishedClasses().size());
}

TEST(ShippedClasses, AreAssociationsExactlyBehindTheInstanceClasses) {
    std::size_t position = 0;
    for (const PublishedClass& published : PublishedClasses()) {
        const bool isAssociation =
            ShippedRepository().ClassQualifier(published.name, "Association") != nullptr;
        EXPECT_EQ(isAssociation, position++ >= instanceClassCount) << published.name;
    }
}

TEST(ShippedClasses, HaveTheSuperclassesOfTheCatalogue) {
    for (const ClassNode& node : ClassHierarchy()) {
        const ClassDefinition* const definition = ShippedRepository().Find(node.name);
        ASSERT_NE(definition, nullptr) << node.name;
        EXPECT_EQ(definition->superclass, node.parent == nullptr ? "" : node.parent->name)
            << node.name;
    }
}

TEST(ShippedClasses, HoldNoSuperclassThatNothingOfOursDerivesFrom) {
    std::set<std::string> used;
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (IsOurs(definition)) {
            const auto ancestors = ShippedRepository().Derivation(definition.name);
            used.insert(ancestors.begin(), ancestors.end());
        }
    }
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (!IsOurs(definition)) {
            EXPECT_TRUE(used.contains(definition.name)) << definition.name;
        }
    }
}

TEST(ShippedClasses, AreDescribedWhereTheyAreOurs) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        if (!IsOurs(definition)) {
            continue;
        }
        EXPECT_TRUE(HasQualifier(definition.qualifiers, "Description")) << definition.name;
        for (const PropertyDefinition& property : definition.properties) {
            EXPECT_TRUE(HasQualifier(property.qualifiers, "Description"))
                << definition.name << '.' << property.name;
        }
    }
}

bool IsAbstract(const ClassDefinition& definition) {
    return HasQualifier(definition.qualifiers, "Abstract");
}

TEST(ShippedClasses, AreAbstractUnlessTheyHaveInstancesOrAreIndications) {
    for (const ClassDefinition& definition : ShippedRepository().Classes()) {
        const bool mayBeConcrete = HasQualifier(definition.qualifiers, "dynamic") ||
                                   ShippedRepository().IsA(definition.name, "__Event");
        EXPECT_EQ(IsAbstract(definition), !mayBeConcrete) << definition.name;
    }
}

TEST(ShippedClasses, AreConcreteBelowTheEventClass) {
    for (const char* const name : {"CIM_Indication", "CIM_ProcessIndication", "CIM_AlertIndication",
                                   "QV_SATADeviceIndication"}) {
        EXPECT_TRUE(ShippedRepository().IsA(name, "__ExtrinsicEvent")) << name;
        EXPECT_FALSE(IsAbstract(*ShippedRepository().Find(name))) << name;
    }
}

TEST(ShippedClasses, HaveAbstractParentsWhereAProviderMakesTheirInstances) {
    for (const PublishedClass& published : PublishedClasses()) {
        const std::string& parent = ShippedRepository().Find(published.name)->superclass;
        EXPECT_TRUE(IsAbstract(*ShippedRepository().Find(parent))) << published.name;
    }
}

struct ClassKeys {
    const char* className;
    std::vector<std::string> keys;
};

TEST(ShippedClasses, HaveTheKeysOfTheirSuperclasses) {
    const std::vector<std::string> device{"CreationClassName", "DeviceID",
                                          "SystemCreationClassName", "SystemName"};
    const std::vector<std::string> endpoint{"CreationClassName", "Name", "SystemCreationClassName",
                                            "SystemName"};
    const std::vector<std::string> identity{"InstanceID"};
    const std::vector<std::string> package{"CreationClassName", "Tag"};
    const std::vector<std::string> location{"Name", "PhysicalPosition"};
    const std::vector<std::string> component{"GroupComponent", "PartComponent"};
    const std::vector<std::string> dependency{"Antecedent", "Dependent"};
    const std::vector<ClassKeys> expected{
        {"QV_SATAPortController", device},
        {"QV_SATADiskDrive", device},
        {"QV_SATAStorageExtent", device},
        {"QV_SATADiskDriveFW", identity},
        {"QV_SATAPortControllerPhysicalPackage", package},
        {"QV_SATADiskPhysicalPackage", package},
        {"QV_SATAStorageCollection", identity},
        {"QV_SATADiskLocation", location},
        {"QV_SATAControllerLocation", location},
        {"QV_SATAPortControllerProduct", {"IdentifyingNumber", "Name", "Vendor", "Version"}},
        {"QV_SATALogicalPort", device},
        {"QV_ISATAProtocolEndpoint", endpoint},
        {"QV_TSATAProtocolEndpoint", endpoint},
        {"QV_SATAPortControllerDriver", identity},
        {"QV_SATAPortControllerFW", identity},
        {"QV_SATAPortControllerBIOS", identity},
        {"QV_WinComputerSystem", {"CreationClassName", "Name"}},
        {"QV_WinComputerSystemSATAPortController", component},
        {"QV_SATAPortControllerSATALogicalPort", dependency},
        {"QV_SATAPortControllerPhysicalPackageSATAControllerLocation",
         {"Element", "PhysicalLocation"}},
        {"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage", component},
        {"QV_SATAPortControllerProductSATAPortController", component},
        {"QV_SATAPortControllerPhysicalPackageSATAPortController", dependency},
        {"QV_WinComputerSystemSATAStorageExtent", component},
        {"QV_WinComputerSystemSATADiskDrive", component},
        {"QV_WinComputerSystemSATALogicalPort", component},
        {"QV_SATADiskDriveStorageExtent", dependency},
        {"QV_SATADiskPhysicalPackageSATADiskDrive", dependency},
        {"QV_SATADiskPhysicalPackageSATADiskLocation", {"Element", "PhysicalLocation"}},
        {"QV_SATADiskDriveDiskDriveFW", dependency},
        {"QV_TSATAProtocolEndpointSATADiskDrive", {"AvailableSAP", "ManagedElement"}},
        {"QV_SATALogicalPortISATAProtocolEndpoint", dependency},
        {"QV_SATAInitiatorTargetLogicalUnitPath", {"Initiator", "LogicalUnit", "Target"}},
        {"QV_SATAStorageCollectionSATADiskDrive", {"Collection", "Member"}},
        {"QV_SATAHostedCollection", dependency},
        {"QV_SATAPortControllerFWSATAPortController", dependency},
        {"QV_SATAPortControllerDriverSATAPortController", dependency},
        {"QV_SATAPortControllerBIOSSATAPortController", dependency},
        {"QV_SATADeviceIndication", {}},
    };
    EXPECT_EQ(expected.size(), PublishedClasses().size() + 1);
    for (const ClassKeys& row : expected) {
        ASSERT_NE(ShippedRepository().Find(row.className), nullptr) << row.className;
        EXPECT_THAT(KeyNames(row.className), ElementsAreArray(row.keys)) << row.className;
    }
}

struct PublishedProperty {
    const char* className;
    const char* property;
    const char* type;
};

// What instances are filled with beside their keys, and the type that takes it.
constexpr PublishedProperty publishedProperties[] = {
    {"QV_SATAPortController", "Caption", "string"},
    {"QV_SATAPortController", "Name", "string"},
    {"QV_SATAPortController", "Description", "string"},
    {"QV_SATAPortController", "ElementName", "string"},
    {"QV_SATAPortController", "ProtocolSupported", "uint16"},
    {"QV_SATAPortController", "OperationalStatus", "uint16[]"},
    {"QV_SATAPortController", "StatusDescriptions", "string[]"},
    {"QV_SATAPortController", "ControllerType", "uint16"},
    {"QV_SATAPortController", "OtherControllerType", "string"},
    {"QV_SATAPortController", "ControllerVersion", "uint16"},

    {"QV_SATALogicalPort", "Caption", "string"},
    {"QV_SATALogicalPort", "ElementName", "string"},
    {"QV_SATALogicalPort", "OperationalStatus", "uint16[]"},
    {"QV_SATALogicalPort", "UsageRestriction", "uint16"},
    {"QV_SATALogicalPort", "PortType", "uint16"},
    {"QV_SATALogicalPort", "OtherPortType", "string"},

    {"QV_ISATAProtocolEndpoint", "Caption", "string"},
    {"QV_ISATAProtocolEndpoint", "ElementName", "string"},
    {"QV_ISATAProtocolEndpoint", "ProtocolIFType", "uint16"},
    {"QV_ISATAProtocolEndpoint", "OtherTypeDescription", "string"},
    {"QV_TSATAProtocolEndpoint", "ProtocolIFType", "uint16"},
    {"QV_TSATAProtocolEndpoint", "OtherTypeDescription", "string"},

    {"QV_SATAPortControllerBIOS", "Name", "string"},
    {"QV_SATAPortControllerBIOS", "Classifications", "uint16[]"},
    {"QV_SATAPortControllerBIOS", "IdentityInfoType", "string[]"},
    {"QV_SATAPortControllerBIOS", "IdentityInfoValue", "string[]"},
    {"QV_SATAPortControllerBIOS", "Manufacturer", "string"},
    {"QV_SATAPortControllerBIOS", "ClassificationDescriptions", "string[]"},
    {"QV_SATAPortControllerBIOS", "VersionString", "string"},
    {"QV_SATAPortControllerFW", "Classifications", "uint16[]"},
    {"QV_SATAPortControllerDriver", "Classifications", "uint16[]"},
    {"QV_SATADiskDriveFW", "VersionString", "string"},
    {"QV_SATADiskDriveFW", "SerialNumber", "string"},

    {"QV_SATAPortControllerProduct", "ElementName", "string"},
    {"QV_SATAControllerLocation", "Caption", "string"},
    {"QV_SATAControllerLocation", "Description", "string"},
    {"QV_SATAControllerLocation", "ElementLocationTagDesc", "uint16"},
    {"QV_SATAControllerLocation", "ElementLocationTag", "string"},
    {"QV_SATADiskLocation", "ElementLocationTagDesc", "uint16"},
    {"QV_SATADiskLocation", "ElementLocationTag", "string"},
    {"QV_SATAPortControllerPhysicalPackage", "Manufacturer", "string"},
    {"QV_SATAPortControllerPhysicalPackage", "SerialNumber", "string"},
    {"QV_SATADiskPhysicalPackage", "Model", "string"},
    {"QV_SATADiskPhysicalPackage", "Version", "string"},
    {"QV_SATADiskPhysicalPackage", "SerialNumber", "string"},
    {"QV_SATADiskPhysicalPackage", "Name", "string"},

    {"QV_SATADiskDrive", "OperationalStatus", "uint16[]"},
    {"QV_SATADiskDrive", "StatusDescriptions", "string[]"},
    {"QV_SATADiskDrive", "Capabilities", "uint16[]"},
    {"QV_SATADiskDrive", "CapabilityDescriptions", "string[]"},
    {"QV_SATADiskDrive", "FirmwareRevision", "string"},
    {"QV_SATADiskDrive", "Index", "uint32"},
    {"QV_SATADiskDrive", "InterfaceType", "string"},
    {"QV_SATADiskDrive", "Manufacturer", "string"},
    {"QV_SATADiskDrive", "Model", "string"},
    {"QV_SATADiskDrive", "Partitions", "uint32"},
    {"QV_SATADiskDrive", "SectorsPerTrack", "uint32"},
    {"QV_SATADiskDrive", "BytesPerSector", "uint32"},
    {"QV_SATADiskDrive", "SerialNumber", "string"},
    {"QV_SATADiskDrive", "Size", "uint64"},
    {"QV_SATADiskDrive", "TracksPerCylinder", "uint32"},
    {"QV_SATADiskDrive", "TotalCylinders", "uint64"},
    {"QV_SATADiskDrive", "TotalHeads", "uint32"},
    {"QV_SATADiskDrive", "TotalSectors", "uint64"},
    {"QV_SATADiskDrive", "TotalTracks", "uint64"},

    {"QV_SATAStorageExtent", "OperationalStatus", "uint16[]"},
    {"QV_SATAStorageExtent", "StatusDescriptions", "string[]"},
    {"QV_SATAStorageExtent", "ElementName", "string"},
    {"QV_SATAStorageExtent", "Caption", "string"},
    {"QV_SATAStorageExtent", "Name", "string"},
    {"QV_SATAStorageExtent", "BlockSize", "uint64"},
    {"QV_SATAStorageExtent", "ConsumableBlocks", "uint64"},
    {"QV_SATAStorageExtent", "Size", "uint64"},
    {"QV_SATAStorageExtent", "Bootable", "boolean"},
    {"QV_SATAStorageExtent", "BootPartition", "boolean"},
    {"QV_SATAStorageExtent", "PrimaryPartition", "boolean"},

    {"QV_SATAStorageCollection", "Caption", "string"},
    {"QV_SATAStorageCollection", "GroupOperationalStatus", "uint16[]"},
    {"QV_SATAStorageCollection", "GroupStatusDescriptions", "string[]"},

    {"QV_SATADiskDriveDiskDriveFW", "ElementSoftwareStatus", "uint16[]"},
    {"QV_SATAPortControllerFWSATAPortController", "ElementSoftwareStatus", "uint16[]"},
    {"QV_SATAPortControllerDriverSATAPortController", "ElementSoftwareStatus", "uint16[]"},
    {"QV_SATAPortControllerBIOSSATAPortController", "ElementSoftwareStatus", "uint16[]"},
    {"QV_SATAInitiatorTargetLogicalUnitPath", "State", "uint32"},

    {"QV_SATADeviceIndication", "AlertingManagedElement", "string"},
    {"QV_SATADeviceIndication", "AlertingElementFormat", "uint16"},
    {"QV_SATADeviceIndication", "EventTime", "datetime"},
    {"QV_SATADeviceIndication", "EventID", "string"},
    {"QV_SATADeviceIndication", "DeviceID", "string"},
    {"QV_SATADeviceIndication", "DeviceModel", "string"},
    {"QV_SATADeviceIndication", "ProviderName", "string"},
    {"QV_SATADeviceIndication", "IndicationIdentifier", "string"},
    {"QV_SATADeviceIndication", "IndicationTime", "datetime"},
    {"QV_SATADeviceIndication", "OSVersion", "string"},
    {"QV_SATADeviceIndication", "OSType", "uint16"},
    {"QV_SATADeviceIndication", "NetworkAddresses", "string[]"},
    {"QV_SATADeviceIndication", "SystemSerialNumber", "string"},
    {"QV_SATADeviceIndication", "SystemProductID", "string"},
    {"QV_SATADeviceIndication", "SystemModel", "string"},
    {"QV_SATADeviceIndication", "SystemGUID", "string"},
    {"QV_SATADeviceIndication", "SystemVirtualSerialNumber", "string"},
    {"QV_SATADeviceIndication", "SystemVirtualUUID", "string"},
    {"QV_SATADeviceIndication", "SystemFirmwareVersion", "string"},
    {"QV_SATADeviceIndication", "SystemCreationClassName", "string"},
    {"QV_SATADeviceIndication", "SystemName", "string"},
    {"QV_SATADeviceIndication", "ProviderVersion", "string"},
    {"QV_SATADeviceIndication", "EnclosureName", "string"},
    {"QV_SATADeviceIndication", "BladeName", "string"},
    {"QV_SATADeviceIndication", "BladeBay", "string"},
    {"QV_SATADeviceIndication", "RackName", "string"},
    {"QV_SATADeviceIndication", "RackUID", "string"},
    {"QV_SATADeviceIndication", "ImpactedDomain", "string"},
    {"QV_SATADeviceIndication", "Description", "string"},
    {"QV_SATADeviceIndication", "AlertType", "uint16"},
    {"QV_SATADeviceIndication", "OtherAlertType", "string"},
    {"QV_SATADeviceIndication", "PerceivedSeverity", "uint16"},
    {"QV_SATADeviceIndication", "OtherSeverity", "string"},
    {"QV_SATADeviceIndication", "ProbableCause", "uint16"},
    {"QV_SATADeviceIndication", "ProbableCauseDescription", "string"},
    {"QV_SATADeviceIndication", "RecommendedActions", "string[]"},
    {"QV_SATADeviceIndication", "Summary", "string"},
    {"QV_SATADeviceIndication", "EventCategory", "uint16"},
    {"QV_SATADeviceIndication", "OtherEventCategory", "string"},
    {"QV_SATADeviceIndication", "EventSubCategory", "uint16"},
    {"QV_SATADeviceIndication", "OtherEventSubCategory", "string"},
};

TEST(ShippedClasses, HaveEveryPropertyThatIsPublished) {
    for (const PublishedProperty& row : publishedProperties) {
        EXPECT_EQ(TypeOf(row.className, row.property), row.type)
            << row.className << '.' << row.property;
    }
}

TEST(ShippedClasses, HaveAnIndicationThatIsAnEvent) {
    EXPECT_THAT(ShippedRepository().Derivation("QV_SATADeviceIndication"),
                testing::ElementsAre("CIM_AlertIndication", "CIM_ProcessIndication",
                                     "CIM_Indication", "__ExtrinsicEvent", "__Event",
                                     "__IndicationRelated", "__SystemClass"));
    EXPECT_FALSE(
        HasQualifier(ShippedRepository().Find("QV_SATADeviceIndication")->qualifiers, "dynamic"));
}

}  // namespace
}  // namespace qv::service
