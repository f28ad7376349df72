#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/service/CimValue.h"
#include "qvsata/service/ObjectPath.h"
#include "qvsata/service/Wql.h"

namespace qv::service {

/// A recorded host that cannot be read. The message is one line: file, place, reason.
class HostFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The names of the recorded computer; a name that was not recorded is empty.
struct ComputerNames {
    std::string server;  ///< __SERVER; the NetBIOS name, or ".", where none was recorded
    std::string dnsFullyQualified;
    std::string dnsHostname;
    std::string netbios;

    bool operator==(const ComputerNames&) const = default;
};

/// The properties of a row, in order.
using RowProperties = std::vector<std::pair<std::string, CimValue>>;

struct RecordedRow;    // a row with what its paths were found to be
struct RecordedScope;  // what the objects of one answer have in common

/// An object that a recorded host answered with: an instance, or a class definition, whose
/// __RELPATH is the name of the class. Immutable; it outlives the host; may be read from
/// several threads at once.
class RecordedObject {
public:
    RecordedObject(std::shared_ptr<const RecordedRow> row,
                   std::shared_ptr<const RecordedScope> scope);

    /// A property by name in any letter case; std::monostate when it is null, nothing when it was
    /// not recorded or not selected. __CLASS, __SERVER, __NAMESPACE, __RELPATH and __PATH are
    /// derived unless the row gives them; the paths are null where a key has no value.
    std::optional<CimValue> Get(std::string_view name) const;

    /// The names of the properties, in the order of the row, without system properties ("__...").
    std::vector<std::string> PropertyNames() const;

    /// The class, as the recording spells it.
    const std::string& ClassName() const;

private:
    bool IsSelected(std::string_view name) const;

    std::shared_ptr<const RecordedRow> row_;
    std::shared_ptr<const RecordedScope> scope_;
};

/// How a query ended, with the values of the management service (wbemcli.h).
enum class QueryStatus : std::uint32_t {
    ok = 0,
    failed = 0x80041001,            ///< WBEM_E_FAILED: the class was recorded as failing
    invalidNamespace = 0x8004100E,  ///< WBEM_E_INVALID_NAMESPACE: the connection fails
    invalidClass = 0x80041010,      ///< WBEM_E_INVALID_CLASS: the class was not recorded
    invalidQuery = 0x80041017,      ///< WBEM_E_INVALID_QUERY: not a query
};

struct QueryAnswer {
    QueryStatus status = QueryStatus::ok;
    std::string message;  ///< one line on what failed; empty on success
    std::vector<RecordedObject> objects;
};

/// Everything that a host's management service answered, recorded: what the embedded management
/// service serves. Built from JSON text or in code. Const methods may be called from several
/// threads at once.
///
/// Namespaces, classes and properties are found without regard to case. A namespace may be written
/// with slashes of either kind and with a server in front, which is not looked at. Classes have no
/// parents here: a query finds the rows of exactly the class that it names.
class RecordedHost {
public:
    RecordedHost();
    explicit RecordedHost(ComputerNames computer, std::string description = {});
    RecordedHost(const RecordedHost&);
    RecordedHost(RecordedHost&&) noexcept;
    RecordedHost& operator=(const RecordedHost&);
    RecordedHost& operator=(RecordedHost&&) noexcept;
    ~RecordedHost();

    /// Reads a recording. `name` stands for the file in messages. Throws HostFileError.
    static RecordedHost FromText(std::string_view json, std::string_view name);
    static RecordedHost FromFile(const std::filesystem::path& file);

    const std::string& Description() const;
    const ComputerNames& Computer() const;

    // Building. What is named is created when it is not there yet.
    void DefineNamespace(std::string_view nameSpace);
    void DefineClass(std::string_view nameSpace, std::string_view className);
    void AddRow(std::string_view nameSpace, std::string_view className, RowProperties properties);
    /// Drops the rows of a class; its queries fail from now on.
    void FailClass(std::string_view nameSpace, std::string_view className);

    bool HasNamespace(std::string_view nameSpace) const;
    std::vector<std::string> Namespaces() const;
    /// The classes of a namespace, failing ones included; none when there is no such namespace.
    std::vector<std::string> Classes(std::string_view nameSpace) const;

    /// Answers a query in a namespace, which __NAMESPACE and __PATH of the objects then repeat.
    ///
    /// SELECT gives the rows of the class that meet the condition, in order. A query on meta_class
    /// gives the classes of the namespace.
    /// ASSOCIATORS OF gives, for each row of the association class in which a reference names the
    /// path, the object that its other reference names, provided that its row was recorded. The
    /// object of the path itself need not have been. Without AssocClass all classes are searched.
    /// REFERENCES OF gives the rows in which a reference names the path. With ClassDefsOnly
    /// either gives the classes of those objects, each once.
    QueryAnswer RunQuery(std::string_view nameSpace, std::string_view query) const;
    QueryAnswer RunQuery(std::string_view nameSpace, const WqlQuery& query) const;

    /// The object that a path names, or nothing. The path's own namespace is preferred to the one
    /// given.
    std::optional<RecordedObject> Find(std::string_view nameSpace, const ObjectPath& path) const;

private:
    struct Data;
    std::unique_ptr<Data> data_;
};

/// The CIM type that a recorded value has: a whole number is sint32, null is string; an array has
/// the type of its elements.
CimType TypeOf(const CimValue& value);

/// Whether a value is an array.
bool IsArray(const CimValue& value);

}  // namespace qv::service
