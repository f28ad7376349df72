#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <chrono>
#include <optional>

#include "qvsata/service/Answer.h"

namespace qv::service {

/// Reads an enumeration of the machine's management service to its end. A failure becomes the
/// answer's status, after the objects before it.
/// @param timeout the longest time for all objects, after which the status is status::timedOut;
/// unset for no limit
Answer ReadEnumeration(IEnumWbemClassObject& live,
                       std::optional<std::chrono::milliseconds> timeout);

}  // namespace qv::service
