#include "qvsata/view/SizeText.h"

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

std::string GigabytesText(std::optional<std::uint64_t> bytes) {
    return Tenths(bytes, 1'000'000'000, "GB");
}

std::string GibibytesText(std::optional<std::uint64_t> bytes) {
    return Tenths(bytes, std::uint64_t{1} << 30U, "GiB");
}

}  // namespace qv::view
