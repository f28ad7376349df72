#pragma once

#include <windows.h>

#include <wbemcli.h>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// Returns the service's own object behind a management object (ObjectFace), or a copy of the
/// properties of any other. An embedded object is read as null.
ObjectPtr ReadObject(IWbemClassObject& object);

}  // namespace qv::service
