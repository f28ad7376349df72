#include "qvsata/hosting/substitutes/PathParser.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/PathParts.h"
#include "qvsata/hosting/objects/Guarded.h"

namespace qv::service {
namespace {

/// Writes a text to the parser's out parameters, by their rules.
HRESULT HandOver(std::wstring_view text, ULONG* length, LPWSTR buffer) {
    if (length == nullptr || (buffer == nullptr && *length != 0)) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    const ULONG room = *length;
    *length = static_cast<ULONG>(text.size()) + 1;
    if (buffer == nullptr) {
        return WBEM_S_NO_ERROR;
    }
    if (room < *length) {
        return windows::Hr(WBEM_E_BUFFER_TOO_SMALL);
    }
    *std::ranges::copy(text, buffer).out = L'\0';
    return WBEM_S_NO_ERROR;
}

}  // namespace

HRESULT PathParser::SetText(ULONG mode, LPCWSTR path) {
    if (mode == 0 || path == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        const std::optional<PathParts> cut = CutPath(windows::ToNarrow(path, CP_UTF8));
        parts_ = {};
        if (!cut) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        const auto wide = [](const std::string& text) { return windows::ToWide(text, CP_UTF8); };
        parts_ = {path, wide(cut->server), wide(cut->nameSpace), wide(cut->relative),
                  wide(cut->className)};
        return S_OK;
    });
}

std::wstring PathParser::TextFor(LONG flags) const {
    const std::wstring server = parts_.server.empty() ? L"." : parts_.server;
    std::wstring full = LR"(\\)" + server + L'\\' + parts_.nameSpace;
    const std::wstring behindNamespace = parts_.relative.empty() || parts_.nameSpace.empty()
                                             ? parts_.relative
                                             : L':' + parts_.relative;
    switch (flags) {
        case WBEMPATH_GET_RELATIVE_ONLY:
            return parts_.relative;
        case WBEMPATH_GET_SERVER_AND_NAMESPACE_ONLY:
            return full;
        case WBEMPATH_GET_NAMESPACE_ONLY:
            return parts_.nameSpace;
        case WBEMPATH_GET_ORIGINAL:
            return parts_.original;
        case WBEMPATH_GET_SERVER_TOO:
            return full + behindNamespace;
        default:
            return parts_.nameSpace + behindNamespace;
    }
}

HRESULT PathParser::GetText(LONG flags, ULONG* length, LPWSTR text) {
    return Guarded([&]() -> HRESULT { return HandOver(TextFor(flags), length, text); });
}

HRESULT PathParser::GetClassName(ULONG* length, LPWSTR name) {
    if (parts_.className.empty()) {
        return windows::Hr(WBEM_E_INVALID_OBJECT_PATH);
    }
    return HandOver(parts_.className, length, name);
}

}  // namespace qv::service
