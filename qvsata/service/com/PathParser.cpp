#include "qvsata/service/com/PathParser.h"

#include <algorithm>
#include <string_view>

#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "qvsata/service/ObjectPath.h"
#include "qvsata/service/com/Guarded.h"

namespace qv::service {
namespace {

constexpr std::wstring_view slashes = L"\\/";

bool IsSlash(wchar_t character) {
    return slashes.find(character) != std::wstring_view::npos;
}

/// Takes `\\server\` off the front; false when the slashes are not of one kind.
bool TakeServer(std::wstring_view& text, std::wstring& server) {
    if (text.size() < 2 || !IsSlash(text[0]) || !IsSlash(text[1])) {
        return true;
    }
    const std::size_t end = text.find_first_of(slashes, 2);
    if (text[0] != text[1] || end == std::wstring_view::npos) {
        return false;
    }
    server = text.substr(2, end - 2);
    text.remove_prefix(end + 1);
    return true;
}

/// Takes the namespace off the front: what stands before a colon that is not within a key, or all
/// of a text that names no class.
void TakeNamespace(std::wstring_view& text, std::wstring& nameSpace) {
    const std::size_t mark = text.find_first_of(L":=\"'");
    if (mark != std::wstring_view::npos && text[mark] == L':') {
        nameSpace = text.substr(0, mark);
        text.remove_prefix(mark + 1);
    } else if (mark == std::wstring_view::npos && text.find_first_of(slashes) != mark) {
        nameSpace = text;
        text = {};
    }
    nameSpace.erase(0, nameSpace.find_first_not_of(slashes));
    std::ranges::replace(nameSpace, L'/', L'\\');
}

/// Hands a text over by the rules of the parser's out parameters.
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

bool PathParser::Split(std::wstring_view text, Parts& parts) {
    parts.original = text;
    if (!TakeServer(text, parts.server)) {
        return false;
    }
    TakeNamespace(text, parts.nameSpace);
    parts.relative = text;
    if (text.empty()) {
        return true;
    }
    const std::optional<ObjectPath> path = ParseObjectPath(windows::ToNarrow(text, CP_UTF8));
    if (!path) {
        return false;
    }
    parts.className = windows::ToWide(path->className, CP_UTF8);
    return true;
}

HRESULT PathParser::SetText(ULONG mode, LPCWSTR path) {
    if (mode == 0 || path == nullptr) {
        return windows::Hr(WBEM_E_INVALID_PARAMETER);
    }
    return Guarded([&]() -> HRESULT {
        Parts parts;
        const bool isPath = Split(path, parts);
        parts_ = isPath ? std::move(parts) : Parts{};
        return isPath ? S_OK : windows::Hr(WBEM_E_INVALID_PARAMETER);
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
