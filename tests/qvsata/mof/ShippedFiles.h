#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "SourceTree.h"
#include "qvsata/mof/MofReader.h"
#include "qvsata/mof/ShippedMof.h"

namespace qv::test {

inline std::string ShippedFile(std::string_view name) {
    return QV_SOURCE_DIR "/mof/" + std::string(name);
}

/// Returns the definitions of the shipped files, read once in the order of installation.
inline const service::Namespaces& Shipped() {
    static const service::Namespaces read = [] {
        service::Namespaces namespaces;
        std::vector<std::string> files;
        for (const std::string_view name : service::shippedClassFiles) {
            files.push_back(ShippedFile(name));
        }
        files.push_back(ShippedFile(service::shippedRegistrationFile));
        service::ReadMofFiles(files, namespaces);
        return namespaces;
    }();
    return read;
}

/// Returns the shipped classes and instances of root\QVQ.
inline const service::ClassRepository& ShippedRepository() {
    return *Shipped().Find("root\\QVQ");
}

}  // namespace qv::test
