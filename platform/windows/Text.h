#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace qv::windows {

// Conversions between the wide text of the platform and the narrow text of the core. The code page
// is the system's ANSI code page unless another is passed, and has ASCII as its lower half; a
// character that it lacks becomes its replacement character. An empty text stays empty. They throw
// RequestError with the HRESULT of the system error code if a text cannot be converted.

std::string ToNarrow(std::wstring_view text, UINT codePage = CP_ACP);
std::wstring ToWide(std::string_view text, UINT codePage = CP_ACP);

/// Returns the text in upper case, the same for every user and locale.
std::wstring ToUpper(std::wstring_view text);

}  // namespace qv::windows
