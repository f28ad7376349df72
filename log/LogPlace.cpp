#include "log/LogPlace.h"

#include <windows.h>

#include <array>
#include <string_view>

namespace qv {

std::wstring DefaultLogFolder() {
    std::array<wchar_t, MAX_PATH> directory{};
    // The machine's directory, also in a session that has a private one.
    const UINT length =
        GetSystemWindowsDirectoryW(directory.data(), static_cast<UINT>(directory.size()));
    if (length == 0 || length >= directory.size()) {
        return {};
    }
    return std::wstring(directory.data(), length).append(L"\\system32\\wbem\\logs\\");
}

}  // namespace qv
