#pragma once

#include "platform/windows/ComObject.h"
#include "provider/EventProvider.h"
#include "provider/InstanceProvider.h"

namespace qv::provider {

// New provider objects, each made of what the process has one of; null without memory. Not to be
// called under the loader lock.

windows::ComPtr<CQVWMISATA_InstProv> MakeInstanceProvider();
windows::ComPtr<CQVWMISATA_EventProv> MakeEventProvider();

}  // namespace qv::provider
