#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "SourceTree.h"
#include "qvsata/service/MofReader.h"
#include "qvsata/service/ShippedMof.h"

namespace qv::service {

inline std::string ShippedFile(std::string_view name) {
    return QV_SOURCE_DIR "/mof/" + std::string(name);
}

/// What the shipped files define, read once in the order of installation.
inline const Namespaces& Shipped() {
    static const Namespaces read = [] {
        Namespaces namespaces;
        std::vector<std::string> files;
        for (const std::string_view name : shippedClassFiles) {
            files.push_back(ShippedFile(name));
        }
        files.push_back(ShippedFile(shippedRegistrationFile));
        ReadMofFiles(files, namespaces);
        return namespaces;
    }();
    return read;
}

/// The shipped classes and instances of root\QVQ.
inline const ClassRepository& ShippedRepository() {
    return *Shipped().Find("root\\QVQ");
}

}  // namespace qv::service
