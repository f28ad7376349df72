#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NativeAPI/Association.h"
#include "NativeAPI/ClassCatalogue.h"
#include "NativeAPI/Request.h"
#include "platform/HostFacts.h"
#include "platform/LogPort.h"
#include "platform/QueryPort.h"
#include "source/InstanceRecord.h"

namespace qv {

/// The provider's data layer: finds a class's builder by its name. The builders are its operations
/// named after the class that they build. One object serves the whole process. It keeps no state
/// between calls, so any number of threads may call it at once.
///
/// Returns an empty list if a source query fails or has no rows. Throws what ends a request:
/// RequestError, std::bad_alloc.
class NativeAPI {
public:
    /// All four must outlive the object.
    NativeAPI(const ClassCatalogue& classes, const platform::QueryPort& queries,
              const platform::HostFacts& host, platform::LogPort& log)
        : classes_(classes), queries_(queries), host_(host), log_(log) {}

    /// Returns the instances of a published class, in the order of their source rows; an empty list
    /// for any other class. The class name is compared ignoring case. `mode` combines the bits of
    /// qv::mode. A non-empty `path` keeps only the records whose object path equals it, ignoring
    /// case. `endpoint` restricts associations to those of one endpoint.
    RecordList BuildInstances(std::string_view className, std::uint32_t mode, std::string_view path,
                              const EndpointFilter& endpoint = {}) const;

    /// BuildInstances without a path and for all endpoints.
    RecordList BuildAllInstances(std::string_view className, std::uint32_t mode) const;

    /// Returns the full record of the instance that a request by path names: the first whose object
    /// path equals `path`, ignoring case and the servers and namespaces of references in `path`
    /// (ReduceEmbeddedPaths); nothing if there is none.
    std::optional<InstanceRecord> FindInstance(std::string_view className, std::string path) const;

    /// Returns the full record of the first instance whose property `keyName` is exactly
    /// `keyValue`; an empty list if there is none or if its object path is not unique.
    RecordList FindRecordByKey(std::string_view className, std::string_view keyName,
                               std::string_view keyValue) const;

    RecordList getQV_SATAPortController(const Request& request) const;
    RecordList getQV_SATADiskDrive(const Request& request) const;
    RecordList getQV_SATAStorageExtent(const Request& request) const;
    RecordList getQV_SATADiskDriveFW(const Request& request) const;
    RecordList getQV_SATAPortControllerPhysicalPackage(const Request& request) const;
    RecordList getQV_SATADiskPhysicalPackage(const Request& request) const;
    /// Returns the one group of all published disks, whatever the mode and the path. Its query asks
    /// the management service for QV_SATADiskDrive and so re-enters the provider.
    RecordList getQV_SATAStorageCollection(const Request& request) const;
    RecordList getQV_SATADiskLocation(const Request& request) const;
    RecordList getQV_SATAControllerLocation(const Request& request) const;
    RecordList getQV_SATAPortControllerProduct(const Request& request) const;
    RecordList getQV_SATALogicalPort(const Request& request) const;
    RecordList getQV_ISATAProtocolEndpoint(const Request& request) const;
    RecordList getQV_TSATAProtocolEndpoint(const Request& request) const;
    RecordList getQV_SATAPortControllerDriver(const Request& request) const;
    RecordList getQV_SATAPortControllerFW(const Request& request) const;
    RecordList getQV_SATAPortControllerBIOS(const Request& request) const;
    /// Returns the one host, whatever the mode and the path.
    RecordList getQV_WinComputerSystem(const Request& request) const;

    /// Returns the instances of an association class: one for each of its pairs or triples, with
    /// its fixed property, whatever the mode.
    RecordList getAssociation(const Association& association, const Request& request) const;

    /// Associates all instances of the two ends for which the rule and the condition hold, ordered
    /// by the first end's instances, then by the second's. Builds the instances first, each class
    /// once. Returns an empty list, and builds nothing, if the request is for an endpoint other
    /// than these two.
    RecordList BuildAssociationPairs(const Request& request, const AssociationEnd& firstEnd,
                                     const AssociationEnd& secondEnd, MatchRule rule,
                                     const FurtherCondition& condition = {}) const;

    /// As BuildAssociationPairs, for three ends: `firstRule` applies to the first and the second,
    /// `secondRule` to the second and the third.
    RecordList BuildAssociationTriples(const Request& request, const AssociationEnd& firstEnd,
                                       const AssociationEnd& secondEnd,
                                       const AssociationEnd& thirdEnd, MatchRule firstRule,
                                       MatchRule secondRule) const;

private:
    const ClassCatalogue& classes_;
    const platform::QueryPort& queries_;
    const platform::HostFacts& host_;
    platform::LogPort& log_;
};

}  // namespace qv
