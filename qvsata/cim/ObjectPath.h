#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qv::service {

/// One key of an object path.
struct PathKey {
    std::string name;    ///< empty in the short form Class="value"
    std::string value;   ///< with escapes resolved
    bool quoted = true;  ///< a text; numbers, TRUE and FALSE are not quoted
};

/// The parts of an object path of the management service:
/// \\server\namespace:Class.Key="value",Key2=3. A path without keys names a class.
struct ObjectPath {
    std::string server;     ///< empty if the text has none
    std::string nameSpace;  ///< root\cimv2, with backslashes; empty if the text has none
    std::string className;
    std::vector<PathKey> keys;  ///< in text order
    bool singleton = false;     ///< Class=@

    /// Returns whether the path names an instance and not a class.
    bool NamesInstance() const { return !keys.empty() || singleton; }
};

/// A reference of an association: its role and the object that it names.
struct Reference {
    std::string role;
    ObjectPath path;
};

/// Which parts of a path are written.
enum class PathForm {
    relative,       ///< Class.Key="value"
    withNamespace,  ///< root\cimv2:Class.Key="value"
    full,           ///< \\server\root\cimv2:Class.Key="value"; a missing server becomes "."
};

/// The order in which keys are written.
enum class KeyOrder {
    asGiven,
    alphabetical,  ///< ignoring case, as the management service writes __RELPATH
};

/// Returns the text of a path. Values are in double quotes, their backslashes and double quotes
/// escaped. A path without a namespace is written in relative form, whatever `form` says.
std::string FormatObjectPath(const ObjectPath& path, PathForm form = PathForm::relative,
                             KeyOrder order = KeyOrder::asGiven);

/// Returns a value with its backslashes and double quotes escaped, as it appears between double
/// quotes in a path.
std::string EscapePathValue(std::string_view value);

/// Returns whether two paths name the same object. Letter case, the order of keys and the servers
/// are ignored; namespaces are compared only if both paths have one. A key without a name matches
/// the only key of the other path, whatever its name. Values that are paths themselves are compared
/// as paths.
bool NamesSameObject(const ObjectPath& left, const ObjectPath& right);

/// Returns whether the keys of two paths are the same, by the rules of NamesSameObject.
bool HaveSameKeys(const std::vector<PathKey>& left, const std::vector<PathKey>& right);

/// Returns a text that is equal for all paths of one object whose keys are named: it ignores key
/// order, letter case, server and namespace. Paths of different objects may have the same text;
/// NamesSameObject decides.
std::string IdentityOf(const ObjectPath& path);

/// Return the same for the keys of objects of one class, or for references that are the keys.
std::string IdentityOf(const std::vector<PathKey>& keys);
std::string IdentityOf(const std::vector<Reference>& keys);

/// Returns a namespace with backslashes, without a server or a leading backslash; letter case is
/// kept.
std::string NormalNamespace(std::string_view nameSpace);

/// Returns whether two spellings name the same namespace, ignoring letter case, the kind of slashes
/// and a leading server.
bool IsSameNamespace(std::string_view left, std::string_view right);

}  // namespace qv::service
