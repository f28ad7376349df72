#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/recorded/RecordedNamespace.h"

namespace qv::service {

/// The names of the recorded computer; a name that was not recorded is empty.
struct ComputerNames {
    std::string server;  ///< __SERVER; the NetBIOS name, or ".", where none was recorded
    std::string dnsFullyQualified;
    std::string dnsHostname;
    std::string netbios;

    bool operator==(const ComputerNames&) const = default;
};

/// Everything that a host's management service answered, recorded. Built by HostFile.h or in code;
/// RecordedMachine answers queries from it. Const methods may be called from several threads at
/// once.
///
/// Namespaces, classes and properties are found without regard to case. A namespace may be written
/// with slashes of either kind and with a server in front, which is not looked at. Classes have no
/// parents here: a query finds the rows of exactly the class that it names.
class RecordedHost {
public:
    explicit RecordedHost(ComputerNames computer = {}, std::string description = {});

    const std::string& Description() const { return description_; }
    const ComputerNames& Computer() const { return computer_; }

    // Building. What is named is created when it is missing.
    void DefineNamespace(std::string_view nameSpace);
    void DefineClass(std::string_view nameSpace, std::string_view className);
    void AddRow(std::string_view nameSpace, std::string_view className, RowProperties properties);
    /// Drops the rows of a class; its queries fail from now on.
    void FailClass(std::string_view nameSpace, std::string_view className);

    /// Returns the namespaces in the order of the recording.
    const std::deque<RecordedNamespace>& Namespaces() const { return namespaces_; }
    /// Returns a namespace; null when it was not recorded.
    const RecordedNamespace* FindNamespace(std::string_view nameSpace) const;

private:
    RecordedNamespace& Namespace(std::string_view nameSpace);

    std::string description_;
    ComputerNames computer_;
    std::deque<RecordedNamespace> namespaces_;
    std::unordered_map<std::string, std::size_t> byName_;  ///< folded normal name to position
};

}  // namespace qv::service
