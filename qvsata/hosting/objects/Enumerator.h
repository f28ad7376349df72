#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <memory>

#include "platform/windows/ComObject.h"
#include "qvsata/cim/Object.h"

namespace qv::service {

/// Enumerates the objects of a complete answer: Next and Skip never wait. For one thread at a time.
class Enumerator final : public windows::ComObject<IEnumWbemClassObject> {
public:
    explicit Enumerator(ObjectList objects)
        : Enumerator(std::make_shared<const ObjectList>(std::move(objects)), 0) {}
    Enumerator(std::shared_ptr<const ObjectList> objects, std::size_t next)
        : objects_(std::move(objects)), next_(next) {}

    STDMETHODIMP Reset() override;
    STDMETHODIMP Next(LONG timeout, ULONG count, IWbemClassObject** objects,
                      ULONG* returned) override;
    /// Returns WBEM_E_NOT_SUPPORTED.
    STDMETHODIMP NextAsync(ULONG count, IWbemObjectSink* sink) override;
    /// The copy starts at the current position.
    STDMETHODIMP Clone(IEnumWbemClassObject** copy) override;
    STDMETHODIMP Skip(LONG timeout, ULONG count) override;

private:
    std::shared_ptr<const ObjectList> objects_;
    std::size_t next_;
};

}  // namespace qv::service
