#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace qv::service {

// Conversions between UTF-8, the encoding of recordings, and the platform's wide characters (UTF-16
// on Windows, UTF-32 elsewhere). Both require well-formed text.

std::wstring ToWide(std::string_view utf8);
std::string ToUtf8(std::wstring_view wide);

/// Returns a path as a text for people, in UTF-8.
std::string Utf8OfPath(const std::filesystem::path& path);

/// Returns UTF-16 as UTF-8; nothing if it is not well-formed.
std::optional<std::string> Utf8OfUtf16(std::u16string_view utf16);

}  // namespace qv::service
