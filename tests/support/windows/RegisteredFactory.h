#pragma once

#include <objbase.h>

#include <functional>
#include <stdexcept>
#include <utility>

#include "platform/windows/ComObject.h"

namespace qv::test {

/// A class factory whose objects come from a function.
class FactoryStandIn : public windows::ComObject<IClassFactory> {
public:
    using Maker = std::function<HRESULT(REFIID, void**)>;

    explicit FactoryStandIn(Maker maker) : maker_(std::move(maker)) {}

    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override {
        return object == nullptr ? E_POINTER : maker_(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    Maker maker_;
};

/// While it lives, every thread of the process's multi-threaded apartment gets its objects of a
/// class from this factory instead of the system's.
class RegisteredFactory {
public:
    RegisteredFactory(REFCLSID classId, FactoryStandIn::Maker maker) {
        const auto factory = windows::MakeObject<FactoryStandIn>(std::move(maker));
        if (FAILED(CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER,
                                         REGCLS_MULTIPLEUSE, &cookie_))) {
            throw std::runtime_error("the class object was not registered");
        }
    }
    RegisteredFactory(const RegisteredFactory&) = delete;
    RegisteredFactory& operator=(const RegisteredFactory&) = delete;
    ~RegisteredFactory() { CoRevokeClassObject(cookie_); }

private:
    DWORD cookie_ = 0;
};

}  // namespace qv::test
