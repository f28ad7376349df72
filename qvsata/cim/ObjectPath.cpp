#include "qvsata/cim/ObjectPath.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "source/Text.h"

namespace qv::service {
namespace {

bool IsSameValue(const std::string& left, const std::string& right) {
    if (EqualsIgnoringCase(left, right)) {
        return true;
    }
    const auto leftPath = ParseInstancePath(left);
    if (!leftPath || leftPath->keys.empty()) {
        return false;
    }
    const auto rightPath = ParseInstancePath(right);
    return rightPath && NamesSameObject(*leftPath, *rightPath);
}

bool IsSameKey(const PathKey& left, const PathKey& right) {
    return EqualsIgnoringCase(left.name, right.name) && IsSameValue(left.value, right.value);
}

std::vector<PathKey> Sorted(std::vector<PathKey> keys) {
    std::ranges::stable_sort(keys, {}, [](const PathKey& key) { return FoldCase(key.name); });
    return keys;
}

// Joins the identities of keys: each is Name=identity of the value.
std::string JoinedIdentities(std::vector<std::string> keys) {
    std::ranges::sort(keys);
    std::string identity;
    for (const std::string& key : keys) {
        identity.append("\n").append(key);
    }
    return identity;
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
    char separator = '.';
    for (const PathKey& key : order == KeyOrder::alphabetical ? Sorted(path.keys) : path.keys) {
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

bool HaveSameKeys(const std::vector<PathKey>& left, const std::vector<PathKey>& right) {
    if (left.size() != right.size()) {
        return false;
    }
    if (left.size() == 1) {
        return left[0].name.empty() || right[0].name.empty()
                   ? IsSameValue(left[0].value, right[0].value)
                   : IsSameKey(left[0], right[0]);
    }
    return std::ranges::equal(left, right, IsSameKey) ||
           std::ranges::equal(Sorted(left), Sorted(right), IsSameKey);
}

bool NamesSameObject(const ObjectPath& left, const ObjectPath& right) {
    return EqualsIgnoringCase(left.className, right.className) &&
           left.singleton == right.singleton &&
           (left.nameSpace.empty() || right.nameSpace.empty() ||
            IsSameNamespace(left.nameSpace, right.nameSpace)) &&
           HaveSameKeys(left.keys, right.keys);
}

std::string IdentityOf(const std::vector<PathKey>& keys) {
    std::vector<std::string> texts;
    for (const PathKey& key : keys) {
        const auto reference = ParseInstancePath(key.value);
        texts.push_back(FoldCase(key.name) + '=' +
                        (reference ? IdentityOf(*reference) : FoldCase(key.value)));
    }
    return JoinedIdentities(std::move(texts));
}

std::string IdentityOf(const std::vector<Reference>& keys) {
    std::vector<std::string> texts;
    for (const Reference& key : keys) {
        texts.push_back(FoldCase(key.role) + '=' + IdentityOf(key.path));
    }
    return JoinedIdentities(std::move(texts));
}

std::string IdentityOf(const ObjectPath& path) {
    return FoldCase(path.className) + (path.singleton ? "=@" : "") + IdentityOf(path.keys);
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
