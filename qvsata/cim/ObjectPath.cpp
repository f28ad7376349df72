#include "qvsata/cim/ObjectPath.h"

#include <algorithm>

#include "qvsata/cim/ObjectPathParser.h"
#include "source/Text.h"

namespace qv::service {
namespace {

bool IsSameValue(const std::string& left, const std::string& right) {
    if (EqualsIgnoringCase(left, right)) {
        return true;
    }
    const auto leftPath = ParseObjectPath(left);
    if (!leftPath || leftPath->keys.empty()) {
        return false;
    }
    const auto rightPath = ParseObjectPath(right);
    return rightPath && NamesSameObject(*leftPath, *rightPath);
}

bool HasKey(const std::vector<PathKey>& keys, const PathKey& wanted) {
    return std::ranges::any_of(keys, [&wanted](const PathKey& key) {
        return EqualsIgnoringCase(key.name, wanted.name) && IsSameValue(key.value, wanted.value);
    });
}

}  // namespace

std::string FormatObjectPath(const ObjectPath& path, PathForm form, KeyOrder order) {
    std::string text;
    if (form != PathForm::relative && !path.nameSpace.empty()) {
        if (form == PathForm::full) {
            text.append("\\\\").append(path.server.empty() ? "." : path.server).append("\\");
        }
        text.append(path.nameSpace).append(":");
    }
    text += path.className;
    if (path.singleton) {
        return text + "=@";
    }
    std::vector<PathKey> keys = path.keys;
    if (order == KeyOrder::alphabetical) {
        std::ranges::stable_sort(keys, {}, [](const PathKey& key) { return FoldCase(key.name); });
    }
    char separator = '.';
    for (const PathKey& key : keys) {
        if (!key.name.empty()) {
            text.append(1, separator).append(key.name);
        }
        text += '=';
        text += key.quoted ? '"' + EscapePathValue(key.value) + '"' : key.value;
        separator = ',';
    }
    return text;
}

std::string EscapePathValue(std::string_view value) {
    std::string escaped;
    for (const char c : value) {
        if (c == '\\' || c == '"') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

bool NamesSameObject(const ObjectPath& left, const ObjectPath& right) {
    if (!EqualsIgnoringCase(left.className, right.className) || left.singleton != right.singleton ||
        left.keys.size() != right.keys.size()) {
        return false;
    }
    if (!left.nameSpace.empty() && !right.nameSpace.empty() &&
        !IsSameNamespace(left.nameSpace, right.nameSpace)) {
        return false;
    }
    if (left.keys.size() == 1 && (left.keys[0].name.empty() || right.keys[0].name.empty())) {
        return IsSameValue(left.keys[0].value, right.keys[0].value);
    }
    return std::ranges::all_of(left.keys,
                               [&right](const PathKey& key) { return HasKey(right.keys, key); });
}

std::string IdentityOf(const ObjectPath& path) {
    std::vector<std::string> keys;
    for (const PathKey& key : path.keys) {
        const auto reference = ParseObjectPath(key.value);
        keys.push_back(
            FoldCase(key.name) + '=' +
            (reference && !reference->keys.empty() ? IdentityOf(*reference) : FoldCase(key.value)));
    }
    std::ranges::sort(keys);
    std::string identity = FoldCase(path.className);
    for (const std::string& key : keys) {
        identity.append("\n").append(key);
    }
    return identity;
}

std::string NormalNamespace(std::string_view nameSpace) {
    std::string normal(nameSpace);
    std::ranges::replace(normal, '/', '\\');
    if (normal.starts_with("\\\\")) {
        const std::size_t serverEnd = normal.find('\\', 2);
        normal.erase(0, serverEnd == std::string::npos ? normal.size() : serverEnd);
    }
    normal.erase(0, normal.find_first_not_of('\\'));
    return normal;
}

bool IsSameNamespace(std::string_view left, std::string_view right) {
    return EqualsIgnoringCase(NormalNamespace(left), NormalNamespace(right));
}

}  // namespace qv::service
