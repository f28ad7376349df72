#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ClassRepository.h"

// docs/REFERENCE.md, made of the class definitions, the provider's tables and docs/reference/.

namespace qv::test {

/// What docs/reference/properties.txt says of a property.
struct PropertyNote {
    std::string name;
    std::string source;
    std::string meaning;  ///< may be empty
};

/// What docs/reference/properties.txt says of a class.
struct ClassNote {
    std::string className;
    std::string instances;  ///< how many it has; empty for an association class
    std::vector<PropertyNote> properties;
};

/// Reads the text of docs/reference/properties.txt, whose first lines describe its form.
std::vector<ClassNote> ReadNotes(std::string_view text);

/// Returns the names of the properties that the notes describe for a class, in their order.
std::vector<std::string> DescribedProperties(const std::vector<ClassNote>& notes,
                                             std::string_view className);

/// Returns the text of docs/REFERENCE.md behind its introduction. `classes`: the shipped class
/// definitions.
std::string ReferenceText(const std::vector<ClassNote>& notes,
                          const service::ClassRepository& classes);

}  // namespace qv::test
