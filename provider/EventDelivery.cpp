#include "provider/EventDelivery.h"

#include "events/DeviceIndication.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "provider/InstanceTarget.h"

namespace qv::provider {

HRESULT EventDelivery::SendIndication(const InstanceRecord& event, const AlertSources& sources,
                                      ProviderLog& log) {
    constexpr std::string_view function = "CQVWMISATA_EventProv::SendIndication";
    if (FAILED(services->GetObject(windows::Bstr(windows::ToWide(event.className)).Get(), 0,
                                   nullptr, &definition, nullptr))) {
        log.Failure(function, "Failed GetObject for class: " + event.className);
        return windows::Hr(WBEM_E_FAILED);
    }
    const HRESULT spawned = definition->SpawnInstance(0, &indication);
    if (FAILED(spawned)) {
        return spawned;
    }
    const std::string eventId = EventIdOf(event);
    log.Plain(function, "Event ID = " + eventId);
    if (eventId.empty()) {
        log.Failure(function, "Unrecognized Event ID " + eventId);
        return windows::Hr(WBEM_S_NO_ERROR);
    }
    InstanceTarget target(*indication.Get(), namespacePrefix);
    const Status filled = FillDeviceIndication(target, event, sources);
    return Succeeded(filled) ? sink->Indicate(1, indication.GetAddressOf())
                             : windows::ToHresult(filled);
}

}  // namespace qv::provider
