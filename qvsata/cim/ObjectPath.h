#pragma once

#include <cstddef>
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

/// Returns a text that is the same for paths of one object with all their keys named, whatever the
/// order of the keys, the letter case, the server and the namespace. Paths of different objects may
/// share it: NamesSameObject decides.
std::string IdentityOf(const ObjectPath& path);

/// A namespace in one spelling: backslashes, no server, no leading backslash; letter case is kept.
std::string NormalNamespace(std::string_view nameSpace);

/// Whether two spellings name the same namespace: letter case, the kind of slashes and a server in
/// front do not matter.
bool IsSameNamespace(std::string_view left, std::string_view right);

}  // namespace qv::service
