#pragma once

#include <string>
#include <string_view>

#include "qvsata/service/MofReader.h"

namespace qv::service {

/// The message that reading a text into namespaces ends with; "no error" when it is read.
inline std::string ErrorOf(std::string_view text, Namespaces& namespaces) {
    try {
        ReadMof(text, "a.mof", namespaces);
    } catch (const MofError& error) {
        return error.what();
    }
    return "no error";
}

/// The same with nothing there before.
inline std::string ErrorOf(std::string_view text) {
    Namespaces namespaces;
    return ErrorOf(text, namespaces);
}

}  // namespace qv::service
