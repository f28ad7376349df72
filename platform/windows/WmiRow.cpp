#include "platform/windows/WmiRow.h"

#include <span>
#include <string>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"

namespace qv::windows {
namespace {

/// The elements of an array of one dimension, which is locked while this lives. `Element` must
/// match the array's type.
template <typename Element>
class LockedArray {
public:
    explicit LockedArray(SAFEARRAY* array) : array_(array) {
        LONG lower = 0;
        LONG upper = 0;
        void* data = nullptr;
        locked_ = array != nullptr && SafeArrayGetDim(array) == 1 &&
                  SUCCEEDED(SafeArrayGetLBound(array, 1, &lower)) &&
                  SUCCEEDED(SafeArrayGetUBound(array, 1, &upper)) &&
                  SUCCEEDED(SafeArrayAccessData(array, &data));
        if (locked_) {
            elements_ = {static_cast<const Element*>(data),
                         static_cast<std::size_t>(upper - lower + 1)};
        }
    }
    LockedArray(const LockedArray&) = delete;
    LockedArray& operator=(const LockedArray&) = delete;
    ~LockedArray() {
        if (locked_) {
            SafeArrayUnaccessData(array_);
        }
    }

    explicit operator bool() const { return locked_; }
    std::span<const Element> Elements() const { return elements_; }

private:
    SAFEARRAY* array_;
    bool locked_;
    std::span<const Element> elements_;
};

template <typename Element>
platform::Value ToNumbers(SAFEARRAY* array) {
    const LockedArray<Element> numbers(array);
    if (!numbers) {
        return platform::UnreadValue{};
    }
    return std::vector<Element>(numbers.Elements().begin(), numbers.Elements().end());
}

platform::Value ToTexts(SAFEARRAY* array) {
    const LockedArray<BSTR> held(array);
    if (!held) {
        return platform::UnreadValue{};
    }
    std::vector<std::string> texts;
    for (const BSTR text : held.Elements()) {
        texts.push_back(ToNarrow(Bstr::ViewOf(text)));
    }
    return texts;
}

}  // namespace

platform::Value ToValue(const VARIANT& variant) {
    switch (V_VT(&variant)) {
        case VT_EMPTY:
        case VT_NULL:
            return std::monostate{};
        case VT_BSTR:
            return ToNarrow(Bstr::ViewOf(V_BSTR(&variant)));
        case VT_BOOL:
            return V_BOOL(&variant) != 0;
        case VT_I1:
            return static_cast<std::int8_t>(V_I1(&variant));
        case VT_UI1:
            return V_UI1(&variant);
        case VT_I2:
            return V_I2(&variant);
        case VT_UI2:
            return V_UI2(&variant);
        case VT_I4:
            return static_cast<std::int32_t>(V_I4(&variant));
        case VT_UI4:
            return static_cast<std::uint32_t>(V_UI4(&variant));
        case VT_INT:
            return static_cast<std::int32_t>(V_INT(&variant));
        case VT_UINT:
            return static_cast<std::uint32_t>(V_UINT(&variant));
        case VT_ARRAY | VT_I2:
            return ToNumbers<std::int16_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_UI2:
            return ToNumbers<std::uint16_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_I4:
            return ToNumbers<std::int32_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_UI4:
            return ToNumbers<std::uint32_t>(V_ARRAY(&variant));
        case VT_ARRAY | VT_BSTR:
            return ToTexts(V_ARRAY(&variant));
        default:
            return platform::UnreadValue{};
    }
}

Status WmiRow::Read(std::string_view name, Variant& value) const {
    const std::wstring wideName = ToWide(name);
    const HRESULT result = object_->Get(wideName.c_str(), 0, value.Receive(), nullptr, nullptr);
    return FAILED(result) ? ToStatus(result) : Status::noError;
}

platform::PropertyRead WmiRow::Get(std::string_view name) const {
    Variant value;
    const Status status = Read(name, value);
    if (!Succeeded(status)) {
        return {status, {}};
    }
    return {Status::noError, ToValue(value.Get())};
}

Status WmiRow::GetWideText(std::string_view name, std::wstring& text) const {
    Variant value;
    const Status status = Read(name, value);
    if (!Succeeded(status)) {
        return status;
    }
    if (V_VT(&value.Get()) != VT_BSTR) {
        return Status::failed;
    }
    text = Bstr::ViewOf(V_BSTR(&value.Get()));
    return Status::noError;
}

}  // namespace qv::windows
