#pragma once

#include <string>
#include <string_view>

#include "qvsata/mof/MofReader.h"

namespace qv::test {

/// Returns the error message of reading a text into namespaces; "no error" on success.
inline std::string ErrorOf(std::string_view text, service::Namespaces& namespaces) {
    try {
        service::ReadMof(text, "a.mof", namespaces);
    } catch (const service::MofError& error) {
        return error.what();
    }
    return "no error";
}

/// As above, into empty namespaces.
inline std::string ErrorOf(std::string_view text) {
    service::Namespaces namespaces;
    return ErrorOf(text, namespaces);
}

}  // namespace qv::test
