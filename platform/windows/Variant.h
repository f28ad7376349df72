#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qv::windows {

/// Owns a VARIANT. Comparison and copying are left out: what they should mean for arrays and
/// objects differs by use.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    const VARIANT& Get() const { return value_; }

    /// For a call that takes a VARIANT it does not change.
    VARIANT* Pass() { return &value_; }

    /// For an out parameter; what was held is cleared and the type is VT_EMPTY again.
    VARIANT* Receive() {
        VariantClear(&value_);
        return &value_;
    }

private:
    VARIANT value_;
};

}  // namespace qv::windows
