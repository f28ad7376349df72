#pragma once

#include <string_view>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Catalogue.h"
#include "tests/support/SourceRows.h"

namespace qv::test {

/// A host that the test scripts, and the builders that query it.
struct Builders {
    ScriptedHost host;
    NativeAPI api{PublishedCatalogue(), host, host, host};

    RecordList All(std::string_view className) const {
        return api.BuildInstances(className, mode::allProperties, {});
    }
    RecordList Keys(std::string_view className) const {
        return api.BuildInstances(className, mode::keysOnly, {});
    }
    RecordList At(std::string_view className, std::string_view path) const {
        return api.BuildInstances(className, mode::allProperties, path);
    }
    /// Removes the host's name.
    void ForgetHostName() { host.names.clear(); }
};

}  // namespace qv::test
