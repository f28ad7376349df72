#pragma once

#include "platform/windows/ComObject.h"
#include "qvsata/hosting/IndicationSink.h"
#include "qvsata/hosting/ManagementHost.h"

namespace qv::service {

/// A subscription to the events of the provider's library, as the management service makes one for
/// a consumer: an event provider, initialised for the provider's namespace, that was asked for
/// events. It ends with the object, which the host and its MonitorPauses outlive.
class EventSubscription {
public:
    /// Raises RequestError with the status of what failed.
    explicit EventSubscription(const ManagementHost& host);
    EventSubscription(const EventSubscription&) = delete;
    EventSubscription& operator=(const EventSubscription&) = delete;
    ~EventSubscription();

    /// The indications that were delivered since it was asked last.
    ObjectList Take() { return sink_->Take(); }

    /// Lets go of the provider: from now on nothing is delivered. What was can still be taken.
    void End();

private:
    windows::ComPtr<IndicationSink> sink_ = windows::MakeObject<IndicationSink>();
    windows::ComPtr<IUnknown> provider_;
};

}  // namespace qv::service
