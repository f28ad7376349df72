#pragma once

#include "platform/windows/ComObject.h"
#include "qvsata/hosting/IndicationSink.h"
#include "qvsata/hosting/ManagementHost.h"

namespace qv::service {

/// A subscription to the events of the provider's library, as the management service makes one for
/// a consumer: it creates an event provider, initialises it for the provider's namespace and calls
/// ProvideEvents. It ends with the object. The host and its MonitorPauses must outlive it.
class EventSubscription {
public:
    /// Throws RequestError with the status of the failed step.
    explicit EventSubscription(const ManagementHost& host);
    EventSubscription(const EventSubscription&) = delete;
    EventSubscription& operator=(const EventSubscription&) = delete;
    ~EventSubscription();

    /// Returns the indications delivered since the last call.
    ObjectList Take() { return sink_->Take(); }

    /// Releases the provider: nothing is delivered afterwards. Indications delivered before can
    /// still be taken.
    void End();

private:
    windows::ComPtr<IndicationSink> sink_ = windows::MakeObject<IndicationSink>();
    windows::ComPtr<IUnknown> provider_;
};

}  // namespace qv::service
