#pragma once

#include <array>
#include <string>

#include "SourceTree.h"
#include "qvsata/mof/MofReader.h"

namespace qv::service {

inline std::string ShippedFile(const std::string& name) {
    return QV_SOURCE_DIR "/mof/" + name;
}

/// What the shipped files define, read once in the order of installation.
inline const Namespaces& Shipped() {
    static const Namespaces read = [] {
        Namespaces namespaces;
        const std::array files{ShippedFile("cim_schema.mof"), ShippedFile("qvwmisata.mof"),
                               ShippedFile("qvwmisata_provider.mof")};
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
