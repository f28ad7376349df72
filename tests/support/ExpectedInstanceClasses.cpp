// What each instance class publishes on the small host, property by property in the order of the
// puts, the MOF type of each property, and the list of these classes. Written by hand: the tests of
// a class compare whole records with its table; those of the properties and of the MOF files
// compare each row.
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/SourceRows.h"

namespace qv::test {
namespace {

constexpr const char* theHost = "host.example.org";
constexpr const char* systemClass = "QV_WinComputerSystem";

PropertyTable WinComputerSystemTable() {
    return {Key("CreationClassName", systemClass), Key("Name", theHost)};
}

/// For a controller that supports protocol 37.
PropertyTable SATAPortControllerTable() {
    return {Key("SystemName", theHost),
            Key("CreationClassName", "QV_SATAPortController"),
            Key("SystemCreationClassName", systemClass),
            Key("DeviceID", ahciKey),
            Text("Caption", "the caption"),
            Text("Name", "the description"),
            Text("Description", "the description"),
            Text("ElementName", "the name"),
            Number("ProtocolSupported", "37"),
            Numbers("OperationalStatus", "2"),
            Texts("StatusDescriptions", "OK"),
            Number("ControllerType", "1"),
            Text("OtherControllerType", "IDE/SATA"),
            Number("ControllerVersion", "02")};
}

/// For the channel of the controller.
PropertyTable SATALogicalPortTable() {
    const std::string label = "IDECHANNEL with ID: 4&2E6E9E8&0&0";
    return {Key("DeviceID", channelKey + " connected to " + ahciKey),
            Key("SystemName", theHost),
            Key("CreationClassName", "QV_SATALogicalPort"),
            Key("SystemCreationClassName", systemClass),
            Text("Caption", label),
            Text("ElementName", label),
            Numbers("OperationalStatus", "2"),
            {PropertyEntry{"UsageRestriction", "4", PropertyType{10}, false}, "uint16"},
            {Text("PortType", "1"), "uint16"},
            Text("OtherPortType", "IDE/SATA")};
}

PropertyTable ISATAProtocolEndpointTable() {
    const std::string caption = "Protocol Endpoint for IDECHANNEL with ID: 4&2E6E9E8&0&0";
    return {Key("SystemName", theHost),
            Key("SystemCreationClassName", systemClass),
            Key("CreationClassName", "QV_ISATAProtocolEndpoint"),
            Key("Name", channelKey),
            Text("Caption", caption),
            Text("ElementName", caption),
            Number("ProtocolIFType", "1"),
            Text("OtherTypeDescription", "IDE/ATA/SATA")};
}

/// For the disk on the channel.
PropertyTable TSATAProtocolEndpointTable() {
    const std::string caption = "Protocol Endpoint for " + diskId;
    return {Key("Name", diskKey + " connected to " + channelKey),
            Key("SystemName", theHost),
            Key("SystemCreationClassName", systemClass),
            Key("CreationClassName", "QV_TSATAProtocolEndpoint"),
            Text("Caption", caption),
            Text("ElementName", caption),
            Number("ProtocolIFType", "1"),
            Text("OtherTypeDescription", "IDE/ATA/SATA")};
}

/// The texts in which the software identities of the driver families differ.
struct FamilyTexts {
    std::string name, classification, caption, description, manufacturer;
};

/// For the controller's software; `hasVersion`: the class and the family have a VersionString.
PropertyTable SoftwareTable(const std::string& className, const FamilyTexts& texts,
                            bool hasVersion) {
    PropertyTable table{Key("InstanceID", "QV:" + className + ":" + ahciKey),
                        Text("Name", texts.name),
                        Numbers("Classifications", texts.classification),
                        Texts("IdentityInfoType", "CIM:SoftwareFamily"),
                        Texts("IdentityInfoValue", "QVQ:" + ahciId),
                        Text("Caption", texts.caption),
                        Text("ElementName", texts.caption),
                        Text("Description", texts.description),
                        Text("Manufacturer", texts.manufacturer),
                        Texts("ClassificationDescriptions", texts.description)};
    if (hasVersion) {
        table.push_back(Text("VersionString", "02"));
    }
    return table;
}

/// For the controller with `driver`.
PropertyTable SATAPortControllerBIOSTable(const std::string& driver) {
    const FamilyTexts sata{"SATA BIOS", "6", "SATA BIOS", "SATA BIOS",
                           "Standard SATA Controllers BIOS"};
    const FamilyTexts ide{"IDE/ATA BIOS", "6", "IDE/ATA BIOS", "IDE/ATA BIOS",
                          "Standard IDE/ATA Controllers BIOS"};
    return SoftwareTable("QV_SATAPortControllerBIOS", driver == "msahci" ? sata : ide,
                         driver != "atapi");
}

/// For the controller with `driver`.
PropertyTable SATAPortControllerFWTable(const std::string& driver) {
    const FamilyTexts sata{"SATA firmware", "10", "SATA firmware", "SATA firmware",
                           "Standard SATA Controllers firmware"};
    const FamilyTexts ide{"IDE/ATA firmware", "10", "IDE/ATA firmware", "IDE/ATA firmware",
                          "Standard IDE/ATA Controllers firmware"};
    return SoftwareTable("QV_SATAPortControllerFW", driver == "msahci" ? sata : ide,
                         driver != "atapi");
}

/// For the controller with `driver`.
PropertyTable SATAPortControllerDriverTable(const std::string& driver) {
    const std::string sata = "Standard SATA Controllers Driver";
    const std::string ide = "Standard IDE ATA/ATAPI Controllers Driver";
    const FamilyTexts texts =
        driver == "msahci"  ? FamilyTexts{driver, "2", "NATIVE SATA Driver", sata, sata}
        : driver == "atapi" ? FamilyTexts{driver, "2", "ATAPI Driver", ide, ide}
                            : FamilyTexts{driver, "2", "PCI IDE Driver", ide, ide};
    return SoftwareTable("QV_SATAPortControllerDriver", texts, false);
}

PropertyTable SATAPortControllerProductTable() {
    return {Key("Name", ahciKey), Key("Vendor", "the maker"),
            Key("IdentifyingNumber", "the caption with Revision number: 02"), Key("Version", "02"),
            Text("ElementName", "the caption with Device ID: 2922")};
}

/// The tag's description is put twice; the later put is published.
PropertyTable SATAControllerLocationTable() {
    const std::string position = "the caption with Device ID: 2922";
    return {Key("Name", ahciKey),
            Key("PhysicalPosition", position),
            Text("ElementName", position),
            Text("Caption", position),
            Text("Description", position),
            Number("ElementLocationTagDesc", "21"),
            Number("ElementLocationTagDesc", "15"),
            Text("ElementLocationTag", "PCI DEVICE ID: 2922")};
}

PropertyTable SATAPortControllerPhysicalPackageTable() {
    return {Key("CreationClassName", "QV_SATAPortControllerPhysicalPackage"),
            Key("Tag", ahciKey),
            Text("Caption", "the caption"),
            Text("Name", "the description"),
            Text("Description", "the description"),
            Text("ElementName", "the name"),
            Text("Manufacturer", "the maker"),
            Text("SerialNumber", ahciId)};
}

/// For `fullDisk` with the serial number SN1.
PropertyTable SATADiskDriveTable() {
    return {
        Key("DeviceID", "IDE&DISKX&5&1"),
        Key("SystemName", theHost),
        Key("CreationClassName", "QV_SATADiskDrive"),
        Key("SystemCreationClassName", systemClass),
        Text("Caption", "the caption"),
        Text("Name", "the description"),
        Text("Description", "the description"),
        Text("ElementName", "the name"),
        Numbers("OperationalStatus", "2"),
        Texts("StatusDescriptions", "OK"),
        Numbers("Capabilities", "3*-*4*-*10"),
        Texts("CapabilityDescriptions", "Random Access*-*Supports Writing*-*SMART Notification"),
        Text("FirmwareRevision", "FW01"),
        {Number("Index", "1"), "uint32"},
        Text("InterfaceType", "IDE"),
        Text("Manufacturer", "the manufacturer"),
        Text("Model", "the model"),
        {Number("Partitions", "2"), "uint32"},
        {Number("SectorsPerTrack", "63"), "uint32"},
        {Number("BytesPerSector", "512"), "uint32"},
        Text("SerialNumber", "SN1"),
        {Text("Size", "500105249280"), "uint64"},
        {Number("TracksPerCylinder", "255"), "uint32"},
        {Text("TotalCylinders", "60801"), "uint64"},
        {Number("TotalHeads", "240"), "uint32"},
        {Text("TotalSectors", "976768065"), "uint64"},
        {Text("TotalTracks", "15504255"), "uint64"}};
}

/// For the disk with one partition.
PropertyTable SATAStorageExtentTable() {
    const auto flag = [](std::string name, std::string value) {
        return PropertyEntry{std::move(name), std::move(value), PropertyType{11}, false};
    };
    const std::string partition = "Disk #0, Partition #0";
    return {Key("SystemName", theHost),
            Key("CreationClassName", "QV_SATAStorageExtent"),
            Key("SystemCreationClassName", systemClass),
            Key("DeviceID", diskKey),
            Numbers("OperationalStatus", "3"),
            Texts("StatusDescriptions", "Degraded"),
            Text("ElementName", drive0),
            Text("Caption", "caption of " + partition),
            Text("Description", "description of " + partition),
            Text("Name", "name of " + partition),
            {Text("BlockSize", "512"), "uint64"},
            {Text("ConsumableBlocks", "2048"), "uint64"},
            {Text("Size", "1048576"), "uint64"},
            flag("Bootable", "TRUE"),
            flag("BootPartition", "FALSE"),
            flag("PrimaryPartition", "TRUE")};
}

/// For the disk with the serial number SN1.
PropertyTable SATADiskDriveFWTable() {
    const std::string title = "Disk Drive Firmware";
    return {Key("InstanceID", diskKey),
            Text("ElementName", "disk model"),
            Text("Name", title),
            Text("Caption", title),
            Text("Description", title),
            Texts("ClassificationDescriptions", title),
            Numbers("Classifications", "10"),
            Text("Manufacturer", "disk maker"),
            Texts("IdentityInfoType", "CIM:SoftwareFamily"),
            Texts("IdentityInfoValue", "QVQ:disk model"),
            Text("VersionString", "fw 1.0"),
            Text("SerialNumber", "SN1")};
}

/// For the disk with the serial number SN1.
PropertyTable SATADiskPhysicalPackageTable() {
    return {Key("CreationClassName", "QV_SATADiskPhysicalPackage"),
            Key("Tag", diskKey),
            Text("ElementName", "disk caption"),
            Text("Manufacturer", "disk maker"),
            Text("Model", "disk model"),
            Text("Version", "fw 1.0"),
            Text("SerialNumber", "SN1"),
            Text("Name", drive0)};
}

/// For the disk on a channel whose caption is "ATA Channel 0".
PropertyTable SATADiskLocationTable() {
    const std::string description = "Standard ATA Disk Drive at ATA Channel 0,2E6E9E8";
    return {Key("Name", diskKey),
            Key("PhysicalPosition", "ATA Channel 0"),
            Text("Description", description),
            Text("ElementName", description),
            Text("Caption", "disk caption"),
            Number("ElementLocationTagDesc", "21"),
            Text("ElementLocationTag", "SCSI ID: 0.0.0")};
}

/// For a host with one disk, which is degraded.
PropertyTable SATAStorageCollectionTable() {
    const std::string title = "Disk Drives Consolidated Status";
    return {Key("InstanceID", std::string(theHost) + " QV:QV_SATAStorageCollection"),
            Text("Caption", title),
            Text("Description", title),
            Text("ElementName", title),
            Numbers("GroupOperationalStatus", "3"),
            Texts("GroupStatusDescriptions", "Degraded")};
}

/// Returns the tables of a controller's software class, one per driver.
std::vector<ExpectedTable> ByDriver(PropertyTable (*tableOf)(const std::string& driver)) {
    std::vector<ExpectedTable> tables;
    for (const char* const driver : {"msahci", "pciide", "pciidex", "atapi"}) {
        tables.push_back({driver, tableOf(driver)});
    }
    return tables;
}

}  // namespace

const std::size_t instanceClassTotal = 17;

const std::vector<ExpectedNode>& ExpectedHierarchy() {
    static const std::vector<ExpectedNode> nodes{
        {"CIM_ManagedElement", ""},
        {"CIM_ManagedSystemElement", "CIM_ManagedElement"},
        {"CIM_LogicalElement", "CIM_ManagedSystemElement"},
        {"CIM_EnabledLogicalElement", "CIM_LogicalElement"},
        {"CIM_LogicalDevice", "CIM_EnabledLogicalElement"},
        {"CIM_Controller", "CIM_LogicalDevice"},
        {"CIM_PortController", "CIM_Controller"},
        {"QV_SATAPortController", "CIM_PortController"},
        {"CIM_System", "CIM_EnabledLogicalElement"},
        {"CIM_ComputerSystem", "CIM_System"},
        {"QV_ComputerSystem", "CIM_ComputerSystem"},
        {"QV_WinComputerSystem", "QV_ComputerSystem"},
        {"CIM_MediaAccessDevice", "CIM_LogicalDevice"},
        {"CIM_DiskDrive", "CIM_MediaAccessDevice"},
        {"QV_SATADiskDrive", "CIM_DiskDrive"},
        {"CIM_StorageExtent", "CIM_LogicalDevice"},
        {"QV_SATAStorageExtent", "CIM_StorageExtent"},
        {"CIM_SoftwareIdentity", "CIM_LogicalElement"},
        {"QV_SATADiskDriveFW", "CIM_SoftwareIdentity"},
        {"CIM_PhysicalElement", "CIM_ManagedSystemElement"},
        {"CIM_PhysicalPackage", "CIM_PhysicalElement"},
        {"QV_SATAPortControllerPhysicalPackage", "CIM_PhysicalPackage"},
        {"QV_SATADiskPhysicalPackage", "CIM_PhysicalPackage"},
        {"CIM_Collection", "CIM_ManagedElement"},
        {"CIM_SystemSpecificCollection", "CIM_Collection"},
        {"QV_GroupSystemSpecificCollection", "CIM_SystemSpecificCollection"},
        {"QV_SATAStorageCollection", "QV_GroupSystemSpecificCollection"},
        {"CIM_Location", "CIM_ManagedElement"},
        {"QV_SATADiskLocation", "CIM_Location"},
        {"QV_SATAControllerLocation", "CIM_Location"},
        {"CIM_Product", "CIM_ManagedElement"},
        {"QV_SATAPortControllerProduct", "CIM_Product"},
        {"CIM_LogicalPort", "CIM_LogicalDevice"},
        {"QV_SATALogicalPort", "CIM_LogicalPort"},
        {"CIM_ServiceAccessPoint", "CIM_EnabledLogicalElement"},
        {"CIM_ProtocolEndpoint", "CIM_ServiceAccessPoint"},
        {"QV_ISATAProtocolEndpoint", "CIM_ProtocolEndpoint"},
        {"QV_TSATAProtocolEndpoint", "CIM_ProtocolEndpoint"},
        {"QV_SoftwareIdentity", "CIM_SoftwareIdentity"},
        {"QV_SATAPortControllerDriver", "CIM_SoftwareIdentity"},
        {"QV_SATAPortControllerFW", "CIM_SoftwareIdentity"},
        {"QV_SATAPortControllerBIOS", "CIM_SoftwareIdentity"},
    };
    return nodes;
}

const std::vector<ExpectedInstanceClass>& ExpectedInstanceClasses() {
    static const std::vector<ExpectedInstanceClass> classes{
        {"QV_SATAPortController", Quantity::controllers, {{"", SATAPortControllerTable()}}},
        {"QV_SATADiskDrive", Quantity::disks, {{"", SATADiskDriveTable()}}},
        {"QV_SATAStorageExtent", Quantity::disks, {{"", SATAStorageExtentTable()}}},
        {"QV_SATADiskDriveFW", Quantity::disks, {{"", SATADiskDriveFWTable()}}},
        {"QV_SATAPortControllerPhysicalPackage",
         Quantity::controllers,
         {{"", SATAPortControllerPhysicalPackageTable()}}},
        {"QV_SATADiskPhysicalPackage", Quantity::disks, {{"", SATADiskPhysicalPackageTable()}}},
        {"QV_SATAStorageCollection", Quantity::one, {{"", SATAStorageCollectionTable()}}},
        {"QV_SATADiskLocation", Quantity::disks, {{"", SATADiskLocationTable()}}},
        {"QV_SATAControllerLocation", Quantity::controllers, {{"", SATAControllerLocationTable()}}},
        {"QV_SATAPortControllerProduct",
         Quantity::controllers,
         {{"", SATAPortControllerProductTable()}}},
        {"QV_SATALogicalPort", Quantity::channels, {{"", SATALogicalPortTable()}}},
        {"QV_ISATAProtocolEndpoint", Quantity::channels, {{"", ISATAProtocolEndpointTable()}}},
        {"QV_TSATAProtocolEndpoint", Quantity::disks, {{"", TSATAProtocolEndpointTable()}}},
        {"QV_SATAPortControllerDriver", Quantity::families,
         ByDriver(SATAPortControllerDriverTable)},
        {"QV_SATAPortControllerFW", Quantity::families, ByDriver(SATAPortControllerFWTable)},
        {"QV_SATAPortControllerBIOS", Quantity::families, ByDriver(SATAPortControllerBIOSTable)},
        {"QV_WinComputerSystem", Quantity::one, {{"", WinComputerSystemTable()}}},
    };
    return classes;
}

}  // namespace qv::test
