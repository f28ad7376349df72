#include "qvsata/view/Columns.h"

#include <algorithm>

namespace qv::view {

std::size_t WidthOf(std::string_view text) {
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

std::string Padding(std::size_t width, std::string_view text) {
    return std::string(width - std::min(width, WidthOf(text)), ' ');
}

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos) {
        return {};
    }
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::string OrDash(const std::string& text) {
    return text.empty() ? "-" : text;
}

}  // namespace qv::view
