#include "NativeAPI/Request.h"

#include "source/Text.h"

namespace qv {

bool Request::Accepts(const InstanceRecord& record) const {
    return path.empty() || EqualsIgnoringCase(BuildObjectPath(record), path);
}

}  // namespace qv
