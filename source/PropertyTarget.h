#pragma once

#include <string_view>

#include "platform/Status.h"
#include "source/InstanceRecord.h"

namespace qv {

/// An instance that is being filled. It belongs to one thread.
class PropertyTarget {
public:
    virtual ~PropertyTarget() = default;

    /// Puts the typed value of a record's entry (ToTypedValue), a reference behind the prefix of
    /// the instance's namespace. Returns why the entry was not taken: Status::invalidCimType for a
    /// type that is not published, else the instance's own answer.
    virtual Status Put(const PropertyEntry& property) = 0;

    /// The same of a text that no record holds and no code page narrows.
    virtual Status PutWideText(std::string_view name, std::wstring_view text) = 0;
};

}  // namespace qv
