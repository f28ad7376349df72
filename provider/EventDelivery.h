#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string>

#include "events/AlertIndication.h"
#include "log/ProviderLog.h"
#include "platform/windows/ComObject.h"
#include "source/InstanceRecord.h"

namespace qv::provider {

/// A copy of what a provider object needs for a delivery, which then needs neither the object nor a
/// lock. It owns every reference, so that another thread can release them if the delivering thread
/// is terminated.
struct EventDelivery {
    windows::ComPtr<IWbemServices> services;
    windows::ComPtr<IWbemObjectSink> sink;
    std::wstring namespacePrefix;  ///< \\server\namespace:, before every reference

    windows::ComPtr<IWbemClassObject> definition{};  ///< of the event's class, during a delivery
    windows::ComPtr<IWbemClassObject> indication{};  ///< built from the event

    /// Builds an indication and delivers it. Returns the sink's status, or the failure before the
    /// delivery: WBEM_E_FAILED if the event's class cannot be fetched, the status of the spawn, or
    /// that of a common property that cannot be filled. An event without an "EventID" is logged and
    /// dropped with WBEM_S_NO_ERROR.
    HRESULT SendIndication(const InstanceRecord& event, const AlertSources& sources,
                           ProviderLog& log);
};

}  // namespace qv::provider
