#pragma once

#include <guiddef.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace qv::provider {

/// Converts the text form of an ID, "{8-4-4-4-12}" with digits in upper case, at compile time.
consteval GUID ToGuid(std::wstring_view text) {
    std::array<unsigned char, 16> bytes{};
    std::size_t digits = 0;
    for (const wchar_t character : text) {
        const auto digit = std::wstring_view(L"0123456789ABCDEF").find(character);
        if (digit != std::wstring_view::npos) {
            unsigned char& byte = bytes.at(digits++ / 2);
            byte = static_cast<unsigned char>(byte * 16 + digit);
        }
    }
    if (digits != 2 * bytes.size()) {
        throw "an ID has 32 digits";
    }
    const auto pair = [&bytes](std::size_t first) {
        return static_cast<unsigned short>(bytes[first] * 256 + bytes[first + 1]);
    };
    GUID id{static_cast<unsigned long>(pair(0)) * 65536 + pair(2), pair(4), pair(6), {}};
    for (std::size_t index = 0; index < 8; ++index) {
        id.Data4[index] = bytes[8 + index];
    }
    return id;
}

// The library's class IDs. Programs that load it use them; the providers' MOF and the type library
// contain them.

inline constexpr const wchar_t* instanceProviderText = L"{3F6A2C1E-5B7D-4E90-A1C3-7D2E9F4B8A06}";
inline constexpr GUID instanceProviderId = ToGuid(instanceProviderText);

inline constexpr const wchar_t* eventProviderText = L"{9C4E7B21-0D3A-4F6B-8E15-2A9C6D3F7B40}";
inline constexpr GUID eventProviderId = ToGuid(eventProviderText);

inline constexpr const wchar_t* typeLibraryText = L"{B7C0D5E4-18A2-4B6F-9C37-64E1F0A8D2B9}";
inline constexpr GUID typeLibraryId = ToGuid(typeLibraryText);

}  // namespace qv::provider
