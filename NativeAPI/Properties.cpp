#include "NativeAPI/Properties.h"

#include "source/HostIdentity.h"
#include "source/PropertyReaders.h"
#include "source/StatusMap.h"
#include "source/Text.h"

namespace qv {

std::optional<std::string> HostName(const platform::HostFacts& host) {
    std::string name;
    return GetHostName(host, name) == 0 ? std::optional(std::move(name)) : std::nullopt;
}

void PutSystemName(InstanceRecord& record, const std::optional<std::string>& hostName) {
    if (hostName) {
        SetKeyProperty(record, "SystemName", *hostName);
    }
}

void PutText(InstanceRecord& record, std::string_view name, const platform::Row& row,
             std::string_view sourceName) {
    SetProperty(record, name, TextOrEmpty(row, sourceName));
}

void PutNumber(InstanceRecord& record, std::string_view name, const platform::Row& row,
               std::string_view sourceName) {
    SetProperty(record, name, DecimalOrZero(row, sourceName), PropertyType::int32);
}

void PutStatus(InstanceRecord& record, const platform::Row& row) {
    std::vector<std::string> codes;
    std::vector<std::string> descriptions;
    MapStatusToOperationalStatus(TextOrEmpty(row, "Status"), codes, descriptions);
    SetProperty(record, "OperationalStatus", JoinList(codes), PropertyType::int32Array);
    SetProperty(record, "StatusDescriptions", JoinList(descriptions), PropertyType::stringArray);
}

}  // namespace qv
