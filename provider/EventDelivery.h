#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string>

#include "platform/windows/ComObject.h"
#include "source/InstanceRecord.h"

namespace qv::provider {

/// What it takes to deliver an event: a provider object's, copied, so that the delivery needs the
/// object no more and no lock while it lasts.
struct EventDelivery {
    windows::ComPtr<IWbemServices> services;
    windows::ComPtr<IWbemObjectSink> sink;
    std::wstring namespacePrefix;  ///< \\server\namespace:, before every reference

    /// Makes an indication of the event and hands it to the sink. Gives what the sink says, or why
    /// it was not asked: WBEM_E_FAILED when the event's class cannot be fetched, the status of the
    /// spawning, or that of a common property which cannot be filled. An event without an
    /// "EventID" is logged and dropped with WBEM_S_NO_ERROR.
    HRESULT SendIndication(InstanceRecord event) const;
};

}  // namespace qv::provider
