#include "qvsata/view/text/Columns.h"

#include <algorithm>

#include "qvsata/view/text/Characters.h"

namespace qv::view {

std::size_t WidthOf(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const Character character = FirstCharacter(text);
        width += ColumnsOf(character);
        text.remove_prefix(character.bytes.size());
    }
    return width;
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

std::string DriveNumberText(std::optional<std::int64_t> number) {
    return number ? '#' + std::to_string(*number) : "-";
}

std::string DiskName(std::optional<std::int64_t> number, std::string_view model) {
    const std::string words(Trimmed(model));
    if (number && !words.empty()) {
        return DriveNumberText(number) + ' ' + words;
    }
    return words.empty() ? DriveNumberText(number) : words;
}

std::string CountOf(std::size_t count, std::string_view thing) {
    return std::to_string(count) + ' ' + std::string(thing) + (count == 1 ? "" : "s");
}

std::string OrDash(const std::string& text) {
    return text.empty() ? "-" : Printable(text);
}

}  // namespace qv::view
