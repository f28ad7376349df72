#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// Returns what a management object holds: the service's own object itself (ObjectFace), of any
/// other a copy of its properties. An embedded object is read as null.
ObjectPtr ReadObject(IWbemClassObject& object);

}  // namespace qv::service
