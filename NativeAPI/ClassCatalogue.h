#pragma once

#include <string_view>

#include "NativeAPI/Association.h"
#include "NativeAPI/Request.h"
#include "source/InstanceRecord.h"

namespace qv {

class NativeAPI;

/// A published class and what builds its instances: one of NativeAPI's operations or, for an
/// association class, NativeAPI::getAssociation with the association's parameters.
struct PublishedClass {
    using Builder = RecordList (NativeAPI::*)(const Request&) const;

    std::string_view name;
    Builder builder;                 ///< null for an association class
    const Association* association;  ///< null for an instance class
};

/// What NativeAPI asks about class names, all taken without regard to case. Any number of threads
/// may ask at once.
class ClassCatalogue {
public:
    virtual ~ClassCatalogue() = default;

    /// The published class of that name, which outlives the catalogue; null when none has it.
    virtual const PublishedClass* Find(std::string_view className) const = 0;

    /// Whether a published class is `name` or has it as an ancestor.
    virtual bool IsOfClass(std::string_view className, std::string_view name) const = 0;
};

}  // namespace qv
