#include "qvsata/view/SizeText.h"

#include <charconv>
#include <system_error>

namespace qv::view {
namespace {

/// Returns `bytes` in units of `unit`, rounded to the nearest tenth.
std::string Tenths(std::optional<std::uint64_t> bytes, std::uint64_t unit, const char* name) {
    if (!bytes) {
        return "-";
    }
    const std::uint64_t tenths = *bytes / unit * 10 + (*bytes % unit * 10 + unit / 2) / unit;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + ' ' + name;
}

}  // namespace

std::optional<std::uint64_t> BytesOf(std::string_view text) {
    std::uint64_t bytes = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), bytes);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(bytes)
                                                                    : std::nullopt;
}

std::string GigabytesText(std::optional<std::uint64_t> bytes) {
    return Tenths(bytes, 1'000'000'000, "GB");
}

std::string GibibytesText(std::optional<std::uint64_t> bytes) {
    return Tenths(bytes, std::uint64_t{1} << 30U, "GiB");
}

}  // namespace qv::view
