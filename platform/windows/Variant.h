#pragma once

#include <windows.h>

#include <oleauto.h>

namespace qv::windows {

/// Owns a VARIANT. It has no comparison and no copy: their meaning for arrays and objects depends
/// on the use.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    const VARIANT& Get() const { return value_; }

    /// For a call that takes a VARIANT without changing it.
    VARIANT* Pass() { return &value_; }

    /// For an out parameter; clears the current value to VT_EMPTY.
    VARIANT* Receive() {
        VariantClear(&value_);
        return &value_;
    }

private:
    VARIANT value_;
};

}  // namespace qv::windows
