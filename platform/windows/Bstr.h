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

    /// Copies the text. Throws RequestError with Status::outOfMemory if memory runs out.
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

    /// For an out parameter; frees the current string.
    BSTR* Receive() {
        SysFreeString(Detach());
        return &text_;
    }

    /// Passes the string to the caller, who frees it.
    BSTR Detach() { return std::exchange(text_, nullptr); }

    std::wstring_view View() const { return ViewOf(text_); }

    /// Returns the characters of a system string; none for null.
    static std::wstring_view ViewOf(BSTR text) { return {text, SysStringLen(text)}; }

private:
    BSTR text_ = nullptr;
};

}  // namespace qv::windows
