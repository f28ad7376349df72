#pragma once

#include <cstdint>
#include <string_view>

#include "NativeAPI/Request.h"
#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "source/InstanceRecord.h"

namespace qv {

/// The provider's data layer: the catalogue of the published classes and the builders of their
/// instances, named after the class that they build. One object serves the whole process. It keeps
/// no state between calls, so that any number of threads may call it at once.
///
/// A failed or empty source query gives an empty list. What ends a request is raised: RequestError,
/// std::bad_alloc.
class NativeAPI {
public:
    /// Both outlive the object.
    NativeAPI(const platform::QueryPort& queries, const platform::HostFacts& host)
        : queries_(queries), host_(host) {}

    /// The instances of a published class, in the order of their source rows; an empty list for any
    /// other class. The class name is taken without regard to case, `mode` is made of the bits of
    /// qv::mode, and a non-empty `path` keeps only the records whose object path equals it without
    /// regard to case.
    RecordList BuildInstances(std::string_view className, std::uint32_t mode,
                              std::string_view path) const;

    /// BuildInstances without a path.
    RecordList BuildAllInstances(std::string_view className, std::uint32_t mode) const;

    /// The full record of the first instance whose property `keyName` is exactly `keyValue`; an
    /// empty list when there is none or when its object path is not unique.
    RecordList FindRecordByKey(std::string_view className, std::string_view keyName,
                               std::string_view keyValue) const;

    RecordList getQV_SATAPortController(const Request& request) const;
    RecordList getQV_SATADiskDrive(const Request& request) const;
    /// Answers with the one host, whatever the mode and the path.
    RecordList getQV_WinComputerSystem(const Request& request) const;

private:
    const platform::QueryPort& queries_;
    const platform::HostFacts& host_;
};

}  // namespace qv
