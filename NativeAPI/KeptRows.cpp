#include "NativeAPI/KeptRows.h"

#include <utility>

#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"

namespace qv {

platform::Rows QueryIdeDisks(const platform::QueryPort& queries) {
    platform::Rows disks;
    queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_DiskDrive", disks);
    std::erase_if(disks, [](const auto& disk) { return !IsIdeDisk(*disk); });
    return disks;
}

Status QueryControllerRows(const platform::QueryPort& queries, platform::Rows& controllers) {
    return queries.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_IDEController", controllers);
}

std::vector<ControllerRow> QueryControllers(const platform::QueryPort& queries,
                                            bool (*isKept)(std::string_view deviceId)) {
    platform::Rows controllers;
    QueryControllerRows(queries, controllers);
    std::vector<ControllerRow> kept;
    for (auto& row : controllers) {
        std::string deviceId = TextOrEmpty(*row, "DeviceID");
        if (isKept(deviceId)) {
            kept.push_back({std::move(deviceId), std::move(row)});
        }
    }
    return kept;
}

}  // namespace qv
