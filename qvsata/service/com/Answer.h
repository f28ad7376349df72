#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <string>

#include "qvsata/service/com/Enumerator.h"

namespace qv::service {

/// What a request to a namespace gave.
struct Answer {
    HRESULT status = WBEM_S_NO_ERROR;
    std::string message;  ///< one line on what failed; empty on success
    ObjectList objects;
};

}  // namespace qv::service
