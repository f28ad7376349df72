#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string>

#include "events/AlertIndication.h"
#include "log/ProviderLog.h"
#include "platform/windows/ComObject.h"
#include "source/InstanceRecord.h"

namespace qv::provider {

/// What it takes to deliver an event: a provider object's, copied, so that the delivery needs the
/// object no more and no lock while it lasts. It holds every reference of the delivery, so that
/// somebody else can give them back when the thread that delivers is ended.
struct EventDelivery {
    windows::ComPtr<IWbemServices> services;
    windows::ComPtr<IWbemObjectSink> sink;
    std::wstring namespacePrefix;  ///< \\server\namespace:, before every reference

    windows::ComPtr<IWbemClassObject> definition{};  ///< of the event's class, while it is sent
    windows::ComPtr<IWbemClassObject> indication{};  ///< that is made of the event

    /// Makes an indication of the event and hands it to the sink. Returns what the sink says, or
    /// why it was not asked: WBEM_E_FAILED when the event's class cannot be fetched, the status of
    /// the spawning, or that of a common property which cannot be filled. An event without an
    /// "EventID" is logged and dropped with WBEM_S_NO_ERROR.
    HRESULT SendIndication(const InstanceRecord& event, const AlertSources& sources,
                           ProviderLog& log);
};

}  // namespace qv::provider
