#include "qvsata/explain/SourceRows.h"

#include <algorithm>

#include "source/Namespaces.h"
#include "source/SourceRules.h"

namespace qv::explain {
namespace {

platform::Rows RowsOf(const platform::QueryPort& machine, std::string_view className,
                      std::string_view nameSpace = cimNamespace) {
    platform::Rows rows;
    machine.RunWqlQuery(nameSpace, "SELECT * FROM " + std::string(className), rows);
    return rows;
}

}  // namespace

SourceRows ReadSourceRows(const platform::QueryPort& machine) {
    SourceRows rows;
    rows.disks = RowsOf(machine, source::disks);
    rows.media = RowsOf(machine, source::media);
    rows.controllers = RowsOf(machine, source::controllers);
    rows.links = RowsOf(machine, source::links);
    rows.partitionLinks = RowsOf(machine, source::partitionLinks);
    rows.partitions = RowsOf(machine, source::partitions);
    rows.predictions = RowsOf(machine, source::predictions, wmiNamespace);
    rows.drivers = QueryServingDrivers(machine);
    return rows;
}

std::optional<std::size_t> FailingMediaSearch(const SourceRows& rows) {
    const auto found = std::ranges::find_if(rows.disks, [](const auto& disk) {
        return IsIdeDisk(*disk) && !IsComparableWithMedia(*disk);
    });
    return rows.media.empty() || found == rows.disks.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - rows.disks.begin()));
}

}  // namespace qv::explain
