#pragma once

#include <unknwn.h>
#include <windows.h>

#include "platform/windows/ComObject.h"
#include "provider/Module.h"

namespace qv::provider {

/// The COM class factory of one class. Any number of threads may use it.
template <typename T>
class ClassFactory : public windows::ComObject<IClassFactory> {
public:
    /// `make` returns a new object, or null if memory runs out.
    explicit ClassFactory(windows::ComPtr<T> (*make)()) : make_(make) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        const auto made = make_();
        return made ? made->QueryInterface(iid, object) : E_OUTOFMEMORY;
    }

    STDMETHODIMP LockServer(BOOL lock) override {
        LockModule(lock != FALSE);
        return S_OK;
    }

private:
    ModuleReference module_;
    windows::ComPtr<T> (*make_)();
};

}  // namespace qv::provider
