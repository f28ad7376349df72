#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>
#include <utility>

#include "platform/Status.h"

namespace qv::windows {

/// Owns a system string.
class Bstr {
public:
    Bstr() = default;

    /// A copy of the text. Raises RequestError with Status::outOfMemory when there is no room.
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (text_ == nullptr) {
            throw RequestError(Status::outOfMemory);
        }
    }

    Bstr(Bstr&& other) noexcept : text_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }

    /// For an out parameter; what was held is freed.
    BSTR* Receive() {
        SysFreeString(Detach());
        return &text_;
    }

    /// Hands the string over to the caller.
    BSTR Detach() { return std::exchange(text_, nullptr); }

    std::wstring_view View() const { return ViewOf(text_); }

    /// The characters of a system string, which may be null: a null is an empty text.
    static std::wstring_view ViewOf(BSTR text) { return {text, SysStringLen(text)}; }

private:
    BSTR text_ = nullptr;
};

}  // namespace qv::windows
