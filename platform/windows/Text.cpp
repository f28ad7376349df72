#include "platform/windows/Text.h"

#include <algorithm>
#include <limits>

#include "platform/windows/WbemStatus.h"

namespace qv::windows {
namespace {

[[noreturn]] void RaiseSystemError(DWORD error) {
    throw RequestError(ToStatus(HRESULT_FROM_WIN32(error)));
}

/// The conversion functions of the platform count in int.
int LengthOf(std::size_t length) {
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        RaiseSystemError(ERROR_INVALID_PARAMETER);
    }
    return static_cast<int>(length);
}

template <typename Text>
bool IsAscii(Text text) {
    return std::ranges::all_of(text,
                               [](auto character) { return character >= 0 && character < 0x80; });
}

}  // namespace

std::string ToNarrow(std::wstring_view text, UINT codePage) {
    if (IsAscii(text)) {
        std::string narrow(text.size(), '\0');
        std::ranges::transform(text, narrow.begin(),
                               [](wchar_t character) { return static_cast<char>(character); });
        return narrow;
    }
    const int length = LengthOf(text.size());
    const int needed =
        WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    if (needed == 0 || WideCharToMultiByte(codePage, 0, text.data(), length, narrow.data(), needed,
                                           nullptr, nullptr) == 0) {
        RaiseSystemError(GetLastError());
    }
    return narrow;
}

std::wstring ToWide(std::string_view text, UINT codePage) {
    if (IsAscii(text)) {
        return {text.begin(), text.end()};
    }
    const int length = LengthOf(text.size());
    const int needed = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    if (needed == 0 ||
        MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), needed) == 0) {
        RaiseSystemError(GetLastError());
    }
    return wide;
}

std::wstring ToUpper(std::wstring_view text) {
    std::wstring upper(text);
    if (!upper.empty() &&
        LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), LengthOf(text.size()),
                      upper.data(), LengthOf(upper.size()), nullptr, nullptr, 0) == 0) {
        RaiseSystemError(GetLastError());
    }
    return upper;
}

}  // namespace qv::windows
