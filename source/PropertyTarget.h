#pragma once

#include <string_view>

#include "platform/Status.h"
#include "source/InstanceRecord.h"

namespace qv {

/// An instance that is being filled. It belongs to one thread.
class PropertyTarget {
public:
    virtual ~PropertyTarget() = default;

    /// Puts the typed value of a record's entry (ToTypedValue); a reference is put after the prefix
    /// of the instance's namespace. Returns why the entry was refused: Status::invalidCimType for a
    /// type that is not published, otherwise the instance's own status.
    virtual Status Put(const PropertyEntry& property) = 0;

    /// Puts a wide text without converting it to the code page.
    virtual Status PutWideText(std::string_view name, std::wstring_view text) = 0;
};

}  // namespace qv
