#pragma once

#include <memory>
#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/UnsupportedServices.h"
#include "qvsata/service/RecordedHost.h"

namespace qv::service {

/// A connection to a namespace of a recorded host: GetObject, CreateInstanceEnum and ExecQuery.
/// Their failures are those of RecordedHost::RunQuery. Any number of threads may use it.
class RecordedServices final
    : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    /// `nameSpace` is the spelling that the objects' __NAMESPACE repeats.
    RecordedServices(std::shared_ptr<const RecordedHost> host, std::string nameSpace)
        : host_(std::move(host)), nameSpace_(std::move(nameSpace)) {}

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** result) override;
    STDMETHODIMP CreateInstanceEnum(const BSTR className, long flags, IWbemContext* context,
                                    IEnumWbemClassObject** objects) override;
    STDMETHODIMP ExecQuery(const BSTR language, const BSTR query, long flags, IWbemContext* context,
                           IEnumWbemClassObject** objects) override;

private:
    std::shared_ptr<const RecordedHost> host_;
    std::string nameSpace_;
};

}  // namespace qv::service
