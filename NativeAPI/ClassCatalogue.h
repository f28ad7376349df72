#pragma once

#include <string_view>

#include "NativeAPI/Association.h"
#include "NativeAPI/Request.h"
#include "source/InstanceRecord.h"

namespace qv {

class NativeAPI;

/// A published class and its builder: one of NativeAPI's operations or, for an association class,
/// NativeAPI::getAssociation with the association's parameters.
struct PublishedClass {
    using Builder = RecordList (NativeAPI::*)(const Request&) const;

    std::string_view name;
    Builder builder;                 ///< null for an association class
    const Association* association;  ///< null for an instance class
};

/// The look-ups of class names that NativeAPI needs, all ignoring case. Any number of threads may
/// call at once.
class ClassCatalogue {
public:
    virtual ~ClassCatalogue() = default;

    /// Returns the published class of that name, which outlives the catalogue; null if there is
    /// none.
    virtual const PublishedClass* Find(std::string_view className) const = 0;

    /// Returns whether a published class is `name` or has it as an ancestor.
    virtual bool IsOfClass(std::string_view className, std::string_view name) const = 0;
};

}  // namespace qv
