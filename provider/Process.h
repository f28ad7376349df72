#pragma once

#include "platform/windows/ComObject.h"
#include "provider/EventProvider.h"
#include "provider/InstanceProvider.h"

namespace qv::provider {

// Return a new provider object, or null if memory runs out. Not under the loader lock.

windows::ComPtr<CQVWMISATA_InstProv> MakeInstanceProvider();
windows::ComPtr<CQVWMISATA_EventProv> MakeEventProvider();

}  // namespace qv::provider
