#pragma once

#include <string>
#include <string_view>

#include "qvsata/mof/MofReader.h"

namespace qv::test {

/// The message that reading a text into namespaces ends with; "no error" when it is read.
inline std::string ErrorOf(std::string_view text, service::Namespaces& namespaces) {
    try {
        service::ReadMof(text, "a.mof", namespaces);
    } catch (const service::MofError& error) {
        return error.what();
    }
    return "no error";
}

/// The same with nothing there before.
inline std::string ErrorOf(std::string_view text) {
    service::Namespaces namespaces;
    return ErrorOf(text, namespaces);
}

}  // namespace qv::test
