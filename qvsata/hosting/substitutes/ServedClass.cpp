#include "qvsata/hosting/substitutes/ServedClass.h"

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/Guarded.h"

namespace qv::service {
namespace {

class Factory final : public windows::ComObject<IClassFactory> {
public:
    explicit Factory(ObjectMaker maker) : maker_(std::move(maker)) {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        return Guarded([&]() -> HRESULT { return maker_(iid, object); });
    }

    /// The program serves its classes for as long as it runs.
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    ObjectMaker maker_;
};

}  // namespace

ServedClass::ServedClass(REFCLSID classId, ObjectMaker maker) {
    const auto factory = windows::MakeObject<Factory>(std::move(maker));
    const HRESULT result = CoRegisterClassObject(classId, factory.Get(), CLSCTX_INPROC_SERVER,
                                                 REGCLS_MULTIPLEUSE, &registration_);
    windows::ThrowIfFailed(result);
}

ServedClass::~ServedClass() {
    CoRevokeClassObject(registration_);
}

}  // namespace qv::service
