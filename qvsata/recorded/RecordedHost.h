#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Status.h"
#include "qvsata/recorded/RecordedNamespace.h"

namespace qv::service {

/// The names of the recorded computer. A name that was not recorded is empty.
struct ComputerNames {
    std::string server;  ///< __SERVER; defaults to the NetBIOS name, then to "."
    std::string dnsFullyQualified;
    std::string dnsHostname;
    std::string netbios;

    bool operator==(const ComputerNames&) const = default;
};

/// Returns whether a recording names its computer. Nothing tells computers without names apart.
bool IsNamed(const ComputerNames& computer);

/// The recorded computer's system. What was not recorded is empty or 0.
struct RecordedSystem {
    std::string osVersion;  ///< "10.0.19045"
    unsigned codePage = 0;  ///< the ANSI code page

    bool operator==(const RecordedSystem&) const = default;
};

/// A host's recorded answers to management queries. HostFile.h or code builds it; RecordedMachine
/// answers queries from it. Const methods may be called from several threads at once.
///
/// Names of namespaces, classes and properties ignore case. A namespace may have slashes of either
/// kind and a leading server, which is ignored. Classes have no parents: a query returns the rows
/// of exactly the class that it names.
class RecordedHost {
public:
    explicit RecordedHost(ComputerNames computer = {}, std::string description = {},
                          RecordedSystem system = {});

    const std::string& Description() const { return description_; }
    const ComputerNames& Computer() const { return computer_; }
    const RecordedSystem& System() const { return system_; }

    /// Returns the recording without its namespaces.
    RecordedHost WithoutRows() const { return RecordedHost(computer_, description_, system_); }

    // Building. A missing namespace or class is created.
    void DefineNamespace(std::string_view nameSpace);
    /// Replaces the namespaces by those of another recording.
    void TakeNamespaces(RecordedHost other) {
        namespaces_ = std::move(other.namespaces_);
        byName_ = std::move(other.byName_);
    }
    /// The class is valid until the next one is defined.
    RecordedClass& DefineClass(std::string_view nameSpace, std::string_view className);
    void AddRow(std::string_view nameSpace, std::string_view className, RowProperties properties);
    /// Drops the rows of a class; its queries fail with `failure` from then on.
    void FailClass(std::string_view nameSpace, std::string_view className,
                   Status failure = Status::failed);

    /// Returns the namespaces in the order of the recording.
    const std::deque<RecordedNamespace>& Namespaces() const { return namespaces_; }
    /// Returns a namespace; null if it was not recorded.
    const RecordedNamespace* FindNamespace(std::string_view nameSpace) const;

private:
    RecordedNamespace& Namespace(std::string_view nameSpace);

    std::string description_;
    ComputerNames computer_;
    RecordedSystem system_;
    std::deque<RecordedNamespace> namespaces_;
    HashIndex byName_;  ///< by the folded normal name
};

}  // namespace qv::service
