#include "provider/EventDelivery.h"

#include "events/AlertIndication.h"
#include "log/ProviderLog.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/FillInstance.h"
#include "platform/windows/SystemClock.h"
#include "platform/windows/Text.h"
#include "platform/windows/WbemStatus.h"
#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WindowsSystemFacts.h"
#include "platform/windows/WmiQueryPort.h"

namespace qv::provider {
namespace {

using windows::Bstr;

/// An instance of the management service that is being filled.
class InstanceTarget : public PropertyTarget {
public:
    InstanceTarget(IWbemClassObject& instance, std::wstring_view namespacePrefix)
        : instance_(instance), namespacePrefix_(namespacePrefix) {}

    Status Put(const PropertyEntry& property) override {
        windows::Variant value;
        const HRESULT converted = windows::ToVariant(property, namespacePrefix_, value);
        return FAILED(converted) ? static_cast<Status>(converted) : Put(property.name, value);
    }

    Status PutWideText(std::string_view name, std::wstring_view text) override {
        windows::Variant value;
        VARIANT& out = *value.Receive();
        V_BSTR(&out) = Bstr(text).Detach();
        V_VT(&out) = VT_BSTR;
        return Put(name, value);
    }

private:
    Status Put(std::string_view name, windows::Variant& value) {
        return static_cast<Status>(
            instance_.Put(Bstr(windows::ToWide(name)).Get(), 0, value.Pass(), 0));
    }

    IWbemClassObject& instance_;
    std::wstring_view namespacePrefix_;
};

HRESULT FillCommon(IWbemClassObject& instance, std::wstring_view namespacePrefix,
                   std::string_view eventId) {
    const windows::WmiQueryPort queries;
    const windows::WindowsHostFacts host;
    const windows::WindowsSystemFacts system;
    const windows::SystemClock clock;
    InstanceTarget target(instance, namespacePrefix);
    return static_cast<HRESULT>(
        FillCommonProperties(target, "QV SATA", eventId, {queries, host, system, clock}));
}

}  // namespace

HRESULT EventDelivery::SendIndication(InstanceRecord event) {
    constexpr std::string_view function = "CQVWMISATA_EventProv::SendIndication";
    if (FAILED(services->GetObject(Bstr(windows::ToWide(event.className)).Get(), 0, nullptr,
                                   &definition, nullptr))) {
        commonLog.Failure(function, "Failed GetObject for class: " + event.className);
        return windows::Hr(WBEM_E_FAILED);
    }
    const HRESULT spawned = definition->SpawnInstance(0, &indication);
    if (FAILED(spawned)) {
        return spawned;
    }
    const std::string eventId = GetPropertyEntry(event, "EventID").value;
    commonLog.Plain(function, "Event ID = " + eventId);
    if (eventId.empty()) {
        commonLog.Failure(function, "Unrecognized Event ID " + eventId);
        return windows::Hr(WBEM_S_NO_ERROR);
    }
    std::erase_if(event.properties,
                  [](const PropertyEntry& property) { return property.name == "EventID"; });
    const HRESULT filled = FillCommon(*indication.Get(), namespacePrefix, eventId);
    if (FAILED(filled)) {
        return filled;
    }
    windows::FillInstance(*indication.Get(), event, namespacePrefix);
    return sink->Indicate(1, indication.GetAddressOf());
}

}  // namespace qv::provider
