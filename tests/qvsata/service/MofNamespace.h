#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/mof/MofReader.h"
#include "qvsata/service/Namespace.h"
#include "qvsata/service/StatedInstances.h"

namespace qv::test {

/// A namespace root\test of the server SRV with the classes and instances of a MOF text.
inline std::shared_ptr<const service::Namespace> NamespaceOf(std::string_view mof) {
    service::Namespaces namespaces;
    service::ReadMof(mof, "test.mof", namespaces);
    const service::ClassRepository& repository = namespaces.Of(R"(root\default)");
    service::NamespaceClasses classes(repository, "SRV", R"(root\test)");
    auto stated = std::make_shared<const service::StatedInstances>(repository, classes);
    return std::make_shared<const service::Namespace>(
        R"(root\test)", std::move(classes), service::Namespace::Sources{std::move(stated)});
}

/// The relative paths of what a query returns; its message alone if it fails.
inline std::vector<std::string> PathsOf(const service::Answer& answer) {
    std::vector<std::string> paths;
    for (const service::ObjectPtr& object : answer.objects) {
        paths.push_back(service::TextOf(*object, "__RELPATH"));
    }
    if (!Succeeded(answer.status)) {
        paths.push_back(answer.message);
    }
    return paths;
}

}  // namespace qv::test
