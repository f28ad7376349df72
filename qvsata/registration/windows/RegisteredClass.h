#pragma once

#include <optional>
#include <string>

namespace qv::tool {

/// What the machine's registry says of a class of the library, where the management service's host
/// looks.
struct RegisteredClass {
    std::optional<std::wstring> library;  ///< its file
    std::optional<std::wstring> threadingModel;
};

/// Reads the registration of a class.
/// @param classId "{8-4-4-4-12}"
RegisteredClass ReadRegisteredClass(const wchar_t* classId);

}  // namespace qv::tool
