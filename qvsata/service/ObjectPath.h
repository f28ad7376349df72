#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

/// One key of an object path.
struct PathKey {
    std::string name;    ///< empty in the short form Class="value"
    std::string value;   ///< the value itself, escapes resolved
    bool quoted = true;  ///< text; a number, TRUE or FALSE stands without quotes
};

/// An object path of the management service, taken apart:
/// \\server\namespace:Class.Key="value",Key2=3. A path without keys names a class.
struct ObjectPath {
    std::string server;     ///< empty when the text names none
    std::string nameSpace;  ///< root\cimv2, with backslashes; empty when the text names none
    std::string className;
    std::vector<PathKey> keys;  ///< in the order of the text
    bool singleton = false;     ///< Class=@
};

/// Why a text is no object path.
struct PathError {
    std::string reason;        ///< a phrase without a full stop
    std::size_t position = 0;  ///< bytes from the beginning of the text
};

/// Takes an object path apart. Slashes of server and namespace may be of either kind, values
/// quoted with " or '; inside quotes \\ and \" (or \') are escapes, and a backslash before anything
/// else stands for itself. Blanks are allowed inside quotes only. A text that is no object path
/// gives nothing, and the reason in `error` when there is one.
std::optional<ObjectPath> ParseObjectPath(std::string_view text, PathError* error = nullptr);

/// How much of a path is written.
enum class PathForm {
    relative,       ///< Class.Key="value"
    withNamespace,  ///< root\cimv2:Class.Key="value"
    full,           ///< \\server\root\cimv2:Class.Key="value"; a missing server becomes "."
};

/// In which order keys are written.
enum class KeyOrder {
    asGiven,
    alphabetical,  ///< without regard to case, as the management service writes __RELPATH
};

/// Writes a path: double quotes, backslashes and double quotes of a value escaped. A path without
/// a namespace is written relative whatever the form.
std::string FormatObjectPath(const ObjectPath& path, PathForm form = PathForm::relative,
                             KeyOrder order = KeyOrder::asGiven);

/// The value as it stands between double quotes in a path: backslashes and double quotes escaped.
std::string EscapePathValue(std::string_view value);

/// Whether two paths name the same object: letter case, the order of keys and the servers do not
/// matter, namespaces only when both paths have one. A key without a name is the only key of the
/// other path, whatever its name. Values that are paths themselves are compared as paths.
bool NamesSameObject(const ObjectPath& left, const ObjectPath& right);

/// A namespace in one spelling: backslashes, no server, no leading backslash; letter case is kept.
std::string NormalNamespace(std::string_view nameSpace);

/// Whether two spellings name the same namespace: letter case, the kind of slashes and a server in
/// front do not matter.
bool IsSameNamespace(std::string_view left, std::string_view right);

}  // namespace qv::service
