#pragma once

#include <optional>

#include "events/CSATAHBA_EVENTS.h"
#include "qvsata/linked/LinkedProvider.h"
#include "qvsata/linked/ReplayFacts.h"
#include "qvsata/service/EventFeed.h"
#include "qvsata/service/Namespace.h"

namespace qv::service {

/// The events of the provider's core. The monitor's cycles run on the thread that waits for them.
class LinkedEvents final : public EventFeed, private EventReceiver {
public:
    /// `nameSpace` is the provider's namespace, which `machine` also reaches; it must outlive the
    /// object.
    LinkedEvents(const Namespace& nameSpace, Connector machine, ComputerNames names);

    News Await(std::chrono::milliseconds longest, const std::stop_token& stop) override;
    ObjectList Take() override;
    std::chrono::milliseconds Pause() const override { return CSATAHBA_EVENTS::interval; }
    void LetGo() override;
    void Hurry() override { due_ = SteadyClock::now(); }
    void End() override {}

private:
    using SteadyClock = std::chrono::steady_clock;

    void Receive(const InstanceRecord& event) override;

    const Namespace& nameSpace_;
    MachineQueries queries_;
    RecordedNames host_;
    RecordedFacts system_;
    LocalClock clock_;
    OwnLock lock_;
    SilentLog log_;
    DiskInventory inventory_{queries_, host_, clock_, lock_};
    CSATAHBA_EVENTS monitor_{inventory_, clock_, log_};
    std::string namespacePrefix_;
    SteadyClock::time_point due_ = SteadyClock::now();  ///< start of the next cycle
    ObjectList delivered_;
};

}  // namespace qv::service
