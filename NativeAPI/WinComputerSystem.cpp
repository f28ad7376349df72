// QV_WinComputerSystem: the host itself, one record from the host's name.
#include "NativeAPI/NativeAPI.h"
#include "source/HostIdentity.h"

namespace qv {

RecordList NativeAPI::getQV_WinComputerSystem(const Request& request) const {
    RecordList records;
    InstanceRecord record(request.className);
    SetKeyProperty(record, "CreationClassName", std::string(GetComputerSystemClassName()));
    std::string name;
    if (GetHostName(host_, name) == 0) {
        SetKeyProperty(record, "Name", name);
    }
    AppendRecord(records, std::move(record));
    return records;
}

}  // namespace qv
