#pragma once

#include "qvsata/hosting/EventSubscription.h"
#include "qvsata/hosting/substitutes/MonitorPauses.h"

namespace qv::service {

/// The events of the provider's library: a subscription whose monitor is held after each cycle.
class HostedEvents final : public EventFeed {
public:
    /// Throws RequestError with the status of the failed step.
    explicit HostedEvents(const ManagementHost& host);

    News Await(std::chrono::milliseconds longest, const std::stop_token& stop) override;
    ObjectList Take() override { return subscription_.Take(); }
    std::chrono::milliseconds Pause() const override { return pauses_.Length(); }
    void LetGo() override { pauses_.LetGo(); }
    void Hurry() override { pauses_.Hurry(); }
    void End() override { subscription_.End(); }

private:
    MonitorPauses pauses_;
    EventSubscription subscription_;  // its threads end before the pauses go
};

}  // namespace qv::service
