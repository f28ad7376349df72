#include "NativeAPI/Properties.h"

#include "source/HostIdentity.h"
#include "source/PropertyReaders.h"
#include "source/StatusMap.h"
#include "source/Text.h"

namespace qv {
namespace {

struct MappedStatus {
    std::vector<std::string> codes;
    std::vector<std::string> descriptions;
};

MappedStatus ReadStatus(const platform::Row& row) {
    MappedStatus mapped;
    MapStatusToOperationalStatus(TextOrEmpty(row, "Status"), mapped.codes, mapped.descriptions);
    return mapped;
}

void PutStatusCodes(InstanceRecord& record, const MappedStatus& mapped) {
    SetProperty(record, "OperationalStatus", JoinList(mapped.codes), PropertyType::int32Array);
}

}  // namespace

void PutSystemName(InstanceRecord& record, const std::optional<std::string>& hostName) {
    if (hostName) {
        SetKeyProperty(record, "SystemName", *hostName);
    }
}

void PutCreationClassNames(InstanceRecord& record) {
    SetKeyProperty(record, "CreationClassName", record.className);
    SetKeyProperty(record, "SystemCreationClassName", std::string(GetComputerSystemClassName()));
}

void PutText(InstanceRecord& record, std::string_view name, const platform::Row& row,
             std::string_view sourceName) {
    SetProperty(record, name, TextOrEmpty(row, sourceName));
}

void PutNumber(InstanceRecord& record, std::string_view name, const platform::Row& row,
               std::string_view sourceName) {
    SetProperty(record, name, DecimalOrZero(row, sourceName), PropertyType::int32);
}

void PutOperationalStatus(InstanceRecord& record, const platform::Row& row) {
    PutStatusCodes(record, ReadStatus(row));
}

void PutStatus(InstanceRecord& record, const platform::Row& row) {
    const MappedStatus mapped = ReadStatus(row);
    PutStatusCodes(record, mapped);
    SetProperty(record, "StatusDescriptions", JoinList(mapped.descriptions),
                PropertyType::stringArray);
}

}  // namespace qv
