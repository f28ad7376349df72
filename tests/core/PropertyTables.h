#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/core/Records.h"
#include "tests/core/SourceRows.h"

// What each class publishes of the small host, property by property in the order of publishing.
// Written by hand: the tests of a class compare whole records with its table, the tests of the
// properties each row of it.

namespace qv::test {

using PropertyTable = std::vector<PropertyEntry>;

inline const std::string theHost = "host.example.org";
inline const std::string systemClass = "QV_WinComputerSystem";

inline PropertyTable WinComputerSystemTable() {
    return {Key("CreationClassName", systemClass), Key("Name", theHost)};
}

/// Of a controller that supports protocol 37.
inline PropertyTable SATAPortControllerTable(std::string className = "QV_SATAPortController") {
    return {Key("SystemName", theHost),
            Key("CreationClassName", std::move(className)),
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

/// Of the channel behind the controller.
inline PropertyTable SATALogicalPortTable() {
    const std::string label = "IDECHANNEL with ID: 4&2E6E9E8&0&0";
    return {Key("DeviceID", channelKey + " connected to " + ahciKey),
            Key("SystemName", theHost),
            Key("CreationClassName", "QV_SATALogicalPort"),
            Key("SystemCreationClassName", systemClass),
            Text("Caption", label),
            Text("ElementName", label),
            Numbers("OperationalStatus", "2"),
            {"UsageRestriction", "4", PropertyType{10}, false},
            Text("PortType", "1"),
            Text("OtherPortType", "IDE/SATA")};
}

inline PropertyTable ISATAProtocolEndpointTable() {
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

/// Of the disk behind the channel.
inline PropertyTable TSATAProtocolEndpointTable() {
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

/// Of the controller's software; `hasVersion`: the class and the family have a VersionString.
inline PropertyTable SoftwareTable(const std::string& className, const FamilyTexts& texts,
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

/// Of the controller when it is served by `driver`.
inline PropertyTable SATAPortControllerBIOSTable(const std::string& driver) {
    const FamilyTexts sata{"SATA BIOS", "6", "SATA BIOS", "SATA BIOS",
                           "Standard SATA Controllers BIOS"};
    const FamilyTexts ide{"IDE/ATA BIOS", "6", "IDE/ATA BIOS", "IDE/ATA BIOS",
                          "Standard IDE/ATA Controllers BIOS"};
    return SoftwareTable("QV_SATAPortControllerBIOS", driver == "msahci" ? sata : ide,
                         driver != "atapi");
}

/// Of the controller when it is served by `driver`.
inline PropertyTable SATAPortControllerFWTable(const std::string& driver) {
    const FamilyTexts sata{"SATA firmware", "10", "SATA firmware", "SATA firmware",
                           "Standard SATA Controllers firmware"};
    const FamilyTexts ide{"IDE/ATA firmware", "10", "IDE/ATA firmware", "IDE/ATA firmware",
                          "Standard IDE/ATA Controllers firmware"};
    return SoftwareTable("QV_SATAPortControllerFW", driver == "msahci" ? sata : ide,
                         driver != "atapi");
}

/// Of the controller when it is served by `driver`.
inline PropertyTable SATAPortControllerDriverTable(const std::string& driver) {
    const std::string sata = "Standard SATA Controllers Driver";
    const std::string ide = "Standard IDE ATA/ATAPI Controllers Driver";
    const FamilyTexts texts =
        driver == "msahci"  ? FamilyTexts{driver, "2", "NATIVE SATA Driver", sata, sata}
        : driver == "atapi" ? FamilyTexts{driver, "2", "ATAPI Driver", ide, ide}
                            : FamilyTexts{driver, "2", "PCI IDE Driver", ide, ide};
    return SoftwareTable("QV_SATAPortControllerDriver", texts, false);
}

inline PropertyTable SATAPortControllerProductTable() {
    return {Key("Name", ahciKey), Key("Vendor", "the maker"),
            Key("IdentifyingNumber", "the caption with Revision number: 02"), Key("Version", "02"),
            Text("ElementName", "the caption with Device ID: 2922")};
}

/// The tag's description is put twice; the later one is published.
inline PropertyTable SATAControllerLocationTable() {
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

inline PropertyTable SATAPortControllerPhysicalPackageTable() {
    return {Key("CreationClassName", "QV_SATAPortControllerPhysicalPackage"),
            Key("Tag", ahciKey),
            Text("Caption", "the caption"),
            Text("Name", "the description"),
            Text("Description", "the description"),
            Text("ElementName", "the name"),
            Text("Manufacturer", "the maker"),
            Text("SerialNumber", ahciId)};
}

/// Of `fullDisk` with the serial number SN1.
inline PropertyTable SATADiskDriveTable(std::string className = "QV_SATADiskDrive") {
    return {
        Key("DeviceID", "IDE&DISKX&5&1"),
        Key("SystemName", theHost),
        Key("CreationClassName", std::move(className)),
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
        Number("Index", "1"),
        Text("InterfaceType", "IDE"),
        Text("Manufacturer", "the manufacturer"),
        Text("Model", "the model"),
        Number("Partitions", "2"),
        Number("SectorsPerTrack", "63"),
        Number("BytesPerSector", "512"),
        Text("SerialNumber", "SN1"),
        Text("Size", "500105249280"),
        Number("TracksPerCylinder", "255"),
        Text("TotalCylinders", "60801"),
        Number("TotalHeads", "240"),
        Text("TotalSectors", "976768065"),
        Text("TotalTracks", "15504255")};
}

/// Of the disk with one partition.
inline PropertyTable SATAStorageExtentTable() {
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
            Text("BlockSize", "512"),
            Text("ConsumableBlocks", "2048"),
            Text("Size", "1048576"),
            flag("Bootable", "TRUE"),
            flag("BootPartition", "FALSE"),
            flag("PrimaryPartition", "TRUE")};
}

/// Of the disk with the serial number SN1.
inline PropertyTable SATADiskDriveFWTable() {
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

/// Of the disk with the serial number SN1.
inline PropertyTable SATADiskPhysicalPackageTable() {
    return {Key("CreationClassName", "QV_SATADiskPhysicalPackage"),
            Key("Tag", diskKey),
            Text("ElementName", "disk caption"),
            Text("Manufacturer", "disk maker"),
            Text("Model", "disk model"),
            Text("Version", "fw 1.0"),
            Text("SerialNumber", "SN1"),
            Text("Name", drive0)};
}

/// Of the disk on a channel whose caption is "ATA Channel 0".
inline PropertyTable SATADiskLocationTable() {
    const std::string description = "Standard ATA Disk Drive at ATA Channel 0,2E6E9E8";
    return {Key("Name", diskKey),
            Key("PhysicalPosition", "ATA Channel 0"),
            Text("Description", description),
            Text("ElementName", description),
            Text("Caption", "disk caption"),
            Number("ElementLocationTagDesc", "21"),
            Text("ElementLocationTag", "SCSI ID: 0.0.0")};
}

/// Of a host with one disk, which is degraded.
inline PropertyTable SATAStorageCollectionTable() {
    const std::string title = "Disk Drives Consolidated Status";
    return {Key("InstanceID", theHost + " QV:QV_SATAStorageCollection"),
            Text("Caption", title),
            Text("Description", title),
            Text("ElementName", title),
            Numbers("GroupOperationalStatus", "3"),
            Texts("GroupStatusDescriptions", "Degraded")};
}

}  // namespace qv::test
