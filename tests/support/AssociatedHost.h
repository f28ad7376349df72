#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/Builders.h"
#include "tests/support/Records.h"

// A host on which every association class has instances, and the object paths that it publishes.

namespace qv::test {

/// An association of two classes, and the one of three.
inline const std::string diskExtent = "QV_SATADiskDriveStorageExtent";
inline const std::string triple = "QV_SATAInitiatorTargetLogicalUnitPath";

/// Two controllers, two channels of the second one, and three disks: the first on the first
/// channel, the second on the first controller, the third attached to nothing known.
struct AssociatedHost : Builders {
    AssociatedHost() {
        host.Answer(controllersQuery, {Controller(ahciId), Controller(ideId), Controller(channelA),
                                       Controller(channelB)});
        host.Answer(controllerLinksQuery,
                    {ControllerLink(ideId, channelA), ControllerLink(ideId, channelB),
                     ControllerLink(channelA, disk1), ControllerLink(ahciId, disk2)});
        host.Answer(disksQuery, {Disk(disk1), Disk(disk2), Disk(disk3)});
        host.Answer(publishedDisksQuery, {});
        ServeWith(host, ahciId, "msahci");
        ServeWith(host, ideId, "pciide");
        ServeWith(host, channelA, "atapi");
    }

    inline static const std::string ideId = R"(PCI\VEN_8086&DEV_7010&REV_01\3&1)";
    inline static const std::string channelA = R"(PCIIDE\IDECHANNEL\4&1&0&0)";
    inline static const std::string channelB = R"(PCIIDE\IDECHANNEL\4&1&0&1)";
    inline static const std::string disk1 = R"(IDE\DISKONE\5&1&0)";
    inline static const std::string disk2 = R"(IDE\DISKTWO\5&2&0)";
    inline static const std::string disk3 = R"(IDE\DISKTHREE\5&3&0)";
    inline static const std::string ideKey = "PCI&VEN_8086&DEV_7010&REV_01&3&1";
    inline static const std::string channelAKey = "PCIIDE&IDECHANNEL&4&1&0&0";
    inline static const std::string channelBKey = "PCIIDE&IDECHANNEL&4&1&0&1";
    inline static const std::string disk1Key = "IDE&DISKONE&5&1&0";
    inline static const std::string disk2Key = "IDE&DISKTWO&5&2&0";
    inline static const std::string disk3Key = "IDE&DISKTHREE&5&3&0";
};

inline std::string KeyText(const std::string& name, const std::string& value) {
    return name + "=\"" + value + "\"";
}

inline std::string ClassNameKeys(const std::string& className) {
    return KeyText("CreationClassName", className) + "," +
           KeyText("SystemCreationClassName", "QV_WinComputerSystem");
}

inline const std::string systemNameKey = KeyText("SystemName", "host.example.org");

inline const std::string systemPath =
    R"(QV_WinComputerSystem.CreationClassName="QV_WinComputerSystem",Name="host.example.org")";

inline const std::string collectionPath =
    R"(QV_SATAStorageCollection.InstanceID="host.example.org QV:QV_SATAStorageCollection")";

inline std::string ControllerPath(const std::string& key) {
    return "QV_SATAPortController." + systemNameKey + "," + ClassNameKeys("QV_SATAPortController") +
           "," + KeyText("DeviceID", key);
}

inline std::string PortPath(const std::string& key) {
    return "QV_SATALogicalPort." + KeyText("DeviceID", key) + "," + systemNameKey + "," +
           ClassNameKeys("QV_SATALogicalPort");
}

inline std::string DiskPath(const std::string& key) {
    return "QV_SATADiskDrive." + KeyText("DeviceID", key) + "," + systemNameKey + "," +
           ClassNameKeys("QV_SATADiskDrive");
}

inline std::string ExtentPath(const std::string& key) {
    return "QV_SATAStorageExtent." + systemNameKey + "," + ClassNameKeys("QV_SATAStorageExtent") +
           "," + KeyText("DeviceID", key);
}

inline std::string InitiatorPath(const std::string& key) {
    return "QV_ISATAProtocolEndpoint." + systemNameKey + "," +
           KeyText("SystemCreationClassName", "QV_WinComputerSystem") + "," +
           KeyText("CreationClassName", "QV_ISATAProtocolEndpoint") + "," + KeyText("Name", key);
}

inline std::string TargetPath(const std::string& key) {
    return "QV_TSATAProtocolEndpoint." + KeyText("Name", key) + "," + systemNameKey + "," +
           KeyText("SystemCreationClassName", "QV_WinComputerSystem") + "," +
           KeyText("CreationClassName", "QV_TSATAProtocolEndpoint");
}

inline std::string PackagePath(const std::string& className, const std::string& key) {
    return className + "." + KeyText("CreationClassName", className) + "," + KeyText("Tag", key);
}

inline std::string LocationPath(const std::string& className, const std::string& key,
                                const std::string& position) {
    return className + "." + KeyText("Name", key) + "," + KeyText("PhysicalPosition", position);
}

inline std::string ProductPath(const std::string& key, const std::string& revision) {
    return "QV_SATAPortControllerProduct." + KeyText("Name", key) + "," +
           KeyText("Vendor", "the maker") + "," +
           KeyText("IdentifyingNumber", "the caption with Revision number: " + revision) + "," +
           KeyText("Version", revision);
}

inline std::string SoftwarePath(const std::string& className, const std::string& key) {
    return className + "." + KeyText("InstanceID", "QV:" + className + ":" + key);
}

inline PropertyEntry Reference(std::string role, std::string path) {
    return {std::move(role), std::move(path), PropertyType::reference, true};
}

/// The object paths of endpoints that belong together, in the order of the roles.
using Endpoints = std::vector<std::string>;

/// Returns the records of an association class without a fixed property.
inline RecordList Associated(std::string_view className, const std::vector<std::string>& roles,
                             const std::vector<Endpoints>& associations) {
    RecordList records;
    for (const Endpoints& endpoints : associations) {
        InstanceRecord record(className);
        for (std::size_t role = 0; role < roles.size(); ++role) {
            record.properties.push_back(Reference(roles[role], endpoints.at(role)));
        }
        records.push_back(record);
    }
    return records;
}

/// Returns the records with a property appended to each.
inline RecordList WithAdded(RecordList records, const PropertyEntry& added) {
    for (InstanceRecord& record : records) {
        record.properties.push_back(added);
    }
    return records;
}

}  // namespace qv::test
