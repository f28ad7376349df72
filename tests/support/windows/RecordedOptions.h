#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "SourceTree.h"
#include "qvsata/mof/ShippedMof.h"
#include "qvsata/recorded/HostFile.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::test {

/// Returns a recording of the source tree, such as "hosts/ahci-desktop.json".
inline std::shared_ptr<const service::RecordedHost> ShippedRecording(const std::string& name) {
    return std::make_shared<const service::RecordedHost>(
        service::ReadHostFile(std::string(QV_SOURCE_DIR "/") + name));
}

/// Returns the options for a library on a recorded host, with the shipped class definitions. The
/// library writes no logs.
inline service::HostOptions RecordedOptions(std::shared_ptr<const service::RecordedHost> recorded,
                                            const char* library) {
    service::HostOptions options;
    options.recorded = std::move(recorded);
    std::vector<std::filesystem::path> files;
    for (const std::string_view name : service::shippedClassFiles) {
        files.emplace_back(QV_SOURCE_DIR "/mof/" + std::string(name));
    }
    options.classes = service::ReadPublishedClasses(files);
    options.library = library;
    options.logFolder.emplace();
    return options;
}

}  // namespace qv::test
