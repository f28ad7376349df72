// QV_WinComputerSystem: the host itself; one record, built from the host's name.
#include "NativeAPI/NativeAPI.h"
#include "source/HostIdentity.h"

namespace qv {

RecordList NativeAPI::getQV_WinComputerSystem(const Request& request) const {
    RecordList records;
    InstanceRecord record(request.className);
    SetKeyProperty(record, "CreationClassName", std::string(GetComputerSystemClassName()));
    if (auto name = HostName(host_)) {
        SetKeyProperty(record, "Name", *std::move(name));
    }
    AppendRecord(records, std::move(record));
    return records;
}

}  // namespace qv
