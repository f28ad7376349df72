#pragma once

#include <unknwn.h>
#include <windows.h>
#include <wrl/client.h>

#include <atomic>
#include <new>
#include <tuple>
#include <utility>

namespace qv::windows {

using Microsoft::WRL::ComPtr;

/// Base of every COM object. Counts references, on any thread, and answers QueryInterface for the
/// listed interfaces; the first one is the object's identity. MakeObject creates it.
template <typename... Interfaces>
class ComObject : public Interfaces... {
public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (IsEqualIID(iid, __uuidof(IUnknown))) {
            using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
            *object = static_cast<First*>(this);
        } else {
            ((IsEqualIID(iid, __uuidof(Interfaces)) ? * object = static_cast<Interfaces*>(this)
                                                    : nullptr),
             ...);
        }
        if (*object == nullptr) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) {
            delete this;
        }
        return left;
    }

protected:
    virtual ~ComObject() = default;

private:
    std::atomic<ULONG> references_ = 1;
};

/// Takes over the caller's reference to an object, which may be null. ComPtr::Attach does not: the
/// toolchain's version adds a reference.
template <typename T>
ComPtr<T> Adopt(T* object) {
    ComPtr<T> owner;
    *owner.GetAddressOf() = object;
    return owner;
}

/// Creates an object with one reference, which the result holds.
template <typename T, typename... Arguments>
ComPtr<T> MakeObject(Arguments&&... arguments) {
    return Adopt(new T(std::forward<Arguments>(arguments)...));
}

}  // namespace qv::windows
