#include "qvsata/report/Html.h"

#include "platform/ControlCharacters.h"
#include "qvsata/view/text/Characters.h"

namespace qv::report {
namespace {

std::string_view EntityOf(char character) {
    switch (character) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return "&quot;";
        case '\'':
            return "&#39;";
        default:
            return {};
    }
}

/// No XML document has these two characters.
bool IsBarred(const view::Character& character) {
    return character.code == U'\uFFFE' || character.code == U'\uFFFF';
}

std::string Escaped(std::string_view text) {
    std::string escaped;
    const std::string printable = view::Printable(text);
    for (std::string_view rest = printable; !rest.empty();) {
        const view::Character character = view::FirstCharacter(rest);
        const std::string_view entity = EntityOf(rest.front());
        if (IsBarred(character)) {
            escaped += platform::CodeText(*character.code);
        } else {
            escaped += entity.empty() ? character.bytes : entity;
        }
        rest.remove_prefix(character.bytes.size());
    }
    return escaped;
}

/// Returns the number of bytes that the first `count` characters of a text take.
std::size_t BytesOfCharacters(std::string_view text, std::size_t count) {
    std::size_t bytes = 0;
    for (; count > 0 && bytes < text.size(); --count) {
        bytes += view::FirstCharacter(text.substr(bytes)).bytes.size();
    }
    return bytes;
}

std::size_t CharactersOf(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); ++count) {
        text.remove_prefix(view::FirstCharacter(text).bytes.size());
    }
    return count;
}

}  // namespace

Html::Element Html::In(std::string_view name, const Attributes& attributes) {
    html_ += '\n';
    Begin(name, attributes);
    return {*this, name};
}

void Html::Line(std::string_view name, std::string_view text, const Attributes& attributes) {
    html_ += '\n';
    Inline(name, text, attributes);
}

void Html::Inline(std::string_view name, std::string_view text, const Attributes& attributes) {
    Begin(name, attributes);
    Text(text);
    End(name);
}

void Html::Empty(std::string_view name, const Attributes& attributes) {
    html_ += '\n';
    Begin(name, attributes, "/>");
}

void Html::Text(std::string_view text) {
    html_ += Escaped(Shortened(text, longest_));
}

void Html::Begin(std::string_view name, const Attributes& attributes, std::string_view end) {
    html_.append("<").append(name);
    for (const auto& [attribute, value] : attributes) {
        html_.append(" ").append(attribute).append("=\"");
        Text(value);
        html_ += '"';
    }
    html_ += end;
}

void Html::End(std::string_view name) {
    html_.append("</").append(name).append(">");
}

std::string Shortened(std::string_view text, std::size_t most) {
    const std::size_t count = text.size() <= most ? text.size() : CharactersOf(text);
    if (count <= most) {
        return std::string(text);
    }
    // The end of a sentence often says the most.
    const std::size_t last = most / 4;
    const std::size_t first = most - last;
    return std::string(text.substr(0, BytesOfCharacters(text, first))) + " [... " +
           std::to_string(count - most) + " characters ...] " +
           std::string(text.substr(BytesOfCharacters(text, count - last)));
}

}  // namespace qv::report
