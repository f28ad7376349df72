#include "source/FillInstance.h"

namespace qv {

Status FillInstance(PropertyTarget& instance, const InstanceRecord& record) {
    for (const PropertyEntry& entry : record.properties) {
        instance.Put(entry);
    }
    return record.properties.empty() ? Status::failed : Status::noError;
}

}  // namespace qv
