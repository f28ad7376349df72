#include "qvsata/cim/PathParts.h"

#include <algorithm>

#include "qvsata/cim/ObjectPathParser.h"

namespace qv::service {
namespace {

constexpr std::string_view eitherSlash = "\\/";

bool IsEitherSlash(char character) {
    return eitherSlash.find(character) != std::string_view::npos;
}

/// Removes `\\server\` from the front; returns false if its slashes are not all of one kind.
bool TakeServer(std::string_view& text, std::string& server) {
    if (text.size() < 2 || !IsEitherSlash(text[0]) || !IsEitherSlash(text[1])) {
        return true;
    }
    const std::size_t end = text.find_first_of(eitherSlash, 2);
    if (text[0] != text[1] || end == std::string_view::npos) {
        return false;
    }
    server = text.substr(2, end - 2);
    text.remove_prefix(end + 1);
    return true;
}

/// Removes the namespace from the front: the text before a colon outside the keys, or all of a text
/// that names no class.
void TakeNamespace(std::string_view& text, std::string& nameSpace) {
    const std::size_t mark = text.find_first_of(":=\"'");
    if (mark != std::string_view::npos && text[mark] == ':') {
        nameSpace = text.substr(0, mark);
        text.remove_prefix(mark + 1);
    } else if (mark == std::string_view::npos && text.find_first_of(eitherSlash) != mark) {
        nameSpace = text;
        text = {};
    }
    nameSpace.erase(0, nameSpace.find_first_not_of(eitherSlash));
    std::ranges::replace(nameSpace, '/', '\\');
}

}  // namespace

std::optional<PathParts> CutPath(std::string_view text) {
    PathParts parts;
    if (!TakeServer(text, parts.server)) {
        return std::nullopt;
    }
    TakeNamespace(text, parts.nameSpace);
    parts.relative = text;
    if (text.empty()) {
        return parts;
    }
    std::optional<ObjectPath> path = ParseObjectPath(text);
    if (!path) {
        return std::nullopt;
    }
    parts.className = std::move(path->className);
    return parts;
}

}  // namespace qv::service
