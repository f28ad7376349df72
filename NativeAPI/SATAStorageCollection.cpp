// QV_SATAStorageCollection: the one group of all published disks of the host. Its status is rolled
// up from the QV_SATADiskDrive instances as the management service delivers them.
#include <optional>
#include <vector>

#include "NativeAPI/GroupStatus.h"
#include "NativeAPI/NativeAPI.h"
#include "NativeAPI/Properties.h"
#include "source/HostIdentity.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"

namespace qv {
namespace {

constexpr const char* collectionTitle = "Disk Drives Consolidated Status";

std::optional<std::int32_t> StatusCodeOf(const platform::Row& disk) {
    std::vector<std::int32_t> codes;
    GetIntegerArrayProperty(disk, "OperationalStatus", codes);
    return codes.empty() ? std::nullopt : std::optional(codes.front());
}

}  // namespace

RecordList NativeAPI::getQV_SATAStorageCollection(const Request& request) const {
    RecordList records;
    platform::Rows disks;
    if (!Succeeded(
            queries_.RunWqlQuery(providerNamespace, "SELECT * FROM QV_SATADiskDrive", disks))) {
        return records;
    }
    std::vector<std::optional<std::int32_t>> codes;
    for (const auto& disk : disks) {
        codes.push_back(StatusCodeOf(*disk));
    }
    const GroupStatus status = RollUp(codes);
    InstanceRecord record(request.className);
    if (const auto hostName = HostName(host_)) {
        SetKeyProperty(record, "InstanceID", *hostName + " QV:QV_SATAStorageCollection");
    }
    SetProperty(record, "Caption", collectionTitle);
    SetProperty(record, "Description", collectionTitle);
    SetProperty(record, "ElementName", collectionTitle);
    SetProperty(record, "GroupOperationalStatus", std::to_string(status.code),
                PropertyType::int32Array);
    SetProperty(record, "GroupStatusDescriptions", std::string(status.text),
                PropertyType::stringArray);
    AppendRecord(records, std::move(record));
    return records;
}

}  // namespace qv
