#include "qvsata/mof/MofError.h"

namespace qv::service {
namespace {

std::string OneLine(std::string_view text) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string line;
    for (const char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F) {
            line.append("\\x") += digits[code / 16];
            line += digits[code % 16];
        } else {
            line += character;
        }
    }
    return line;
}

std::string PlaceText(std::string_view fileName, MofPosition position) {
    return std::string(fileName) + ':' + std::to_string(position.line) + ':' +
           std::to_string(position.column);
}

}  // namespace

MofError::MofError(std::string_view fileName, std::string_view what)
    : std::runtime_error(OneLine(std::string(fileName).append(": ").append(what))) {}

MofError::MofError(std::string_view fileName, MofPosition position, std::string_view what)
    : MofError(PlaceText(fileName, position), what) {}

MofError::MofError(std::string_view fileName, MofPosition position, const std::string& what,
                   const MofStatus& status)
    : MofError(fileName, position, what + " (" + ToText(status) + ')') {}

}  // namespace qv::service
