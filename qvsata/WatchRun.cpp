#include "qvsata/WatchRun.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "qvsata/Console.h"
#include "qvsata/Output.h"
#include "qvsata/OutputJson.h"
#include "qvsata/PublishedInstances.h"
#include "qvsata/Session.h"
#include "qvsata/StopRequest.h"
#include "qvsata/WaitingLine.h"
#include "qvsata/service/com/EventSubscription.h"
#include "qvsata/service/com/MonitorPauses.h"
#include "qvsata/service/com/StatusText.h"
#include "qvsata/view/EventLine.h"

namespace qv::tool {
namespace {

using Clock = std::chrono::steady_clock;

view::DiskStatuses ReadStatuses(const service::EmbeddedNamespace& nameSpace) {
    constexpr std::string_view disks = "QV_SATADiskDrive";
    return view::StatusesOf(view::InstancesOf(ReadInstances(nameSpace, std::array{disks}), disks));
}

/// Prints events until there were as many as there may be.
class EventPrinter {
public:
    EventPrinter(const service::EmbeddedNamespace& nameSpace, std::optional<std::size_t> most,
                 EventFormat format)
        : nameSpace_(nameSpace), left_(most), format_(format) {
        if (format_ == EventFormat::text) {
            statuses_ = ReadStatuses(nameSpace_);
        }
    }

    bool IsDone() const { return left_ == 0U; }

    void Print(const service::ObjectList& indications) {
        if (indications.empty()) {
            return;
        }
        view::DiskStatuses now;
        if (format_ == EventFormat::text) {
            now = ReadStatuses(nameSpace_);
        }
        for (const auto& indication : indications) {
            if (IsDone()) {
                break;
            }
            PrintOne(*indication.Get(), now);
            left_ = left_ ? std::optional(*left_ - 1) : left_;
        }
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            throw CommandError("standard output cannot be written");
        }
        statuses_ = std::move(now);
    }

private:
    void PrintOne(IWbemClassObject& indication, const view::DiskStatuses& now) const {
        if (format_ == EventFormat::json) {
            tool::Print(ObjectAsJsonLine(indication));
        } else {
            tool::Print(view::EventLine(ReadObject(indication), statuses_, now));
        }
    }

    const service::EmbeddedNamespace& nameSpace_;
    std::optional<std::size_t> left_;
    EventFormat format_;
    view::DiskStatuses statuses_;  ///< as they were when events were printed last
};

class Watch {
public:
    Watch(const service::ManagementHost& host, const WatchLimits& limits, EventFormat format)
        : host_(host),
          printer_(host.Namespace(), limits.events, format),
          pauses_(host.ProviderModule()),
          subscription_(Subscribed(host)) {
        if (limits.time) {
            end_ = Clock::now() + *limits.time;
        }
    }

    void Run() {
        while (!printer_.IsDone() && !IsOver()) {
            const std::array<HANDLE, 2> news{stop_.Made(), pauses_.CycleOver()};
            const DWORD result =
                WaitForMultipleObjects(news.size(), news.data(), FALSE, LongestWait());
            if (result == WAIT_OBJECT_0) {
                break;
            }
            if (result == WAIT_TIMEOUT) {
                waiting_.Update();
            } else {
                FinishCycle();
            }
        }
        waiting_.End();
        subscription_.End();
        printer_.Print(subscription_.Take());
    }

private:
    static service::EventSubscription Subscribed(const service::ManagementHost& host) try {
        return service::EventSubscription(host);
    } catch (const RequestError& error) {
        throw CommandError("starting the event provider: " +
                           service::StatusText(static_cast<HRESULT>(error.status())));
    }

    bool IsOver() const { return end_ && Clock::now() >= *end_; }

    DWORD LongestWait() const {
        constexpr std::chrono::milliseconds rewriting(1000);
        constexpr std::chrono::milliseconds longest(3600000);
        std::chrono::milliseconds wait = waiting_.IsRewritten() ? rewriting : longest;
        if (end_) {
            wait =
                std::min(wait, std::chrono::ceil<std::chrono::milliseconds>(*end_ - Clock::now()));
        }
        return static_cast<DWORD>(std::max<std::int64_t>(wait.count(), 0));
    }

    void FinishCycle() {
        waiting_.End();
        printer_.Print(subscription_.Take());
        if (printer_.IsDone()) {
            return;
        }
        view::SeenRecording seen;
        if (service::RecordingSequence* recordings = host_.Recordings()) {
            seen = {recordings->Position() + 1, recordings->Size()};
            recordings->Step();
        }
        waiting_.Begin(seen, pauses_.Length());
        pauses_.LetGo();
    }

    const service::ManagementHost& host_;
    EventPrinter printer_;
    StopRequest stop_;
    WaitingLine waiting_;
    std::optional<Clock::time_point> end_;
    service::MonitorPauses pauses_;
    service::EventSubscription subscription_;  // its threads end before the pauses go
};

}  // namespace

void RunWatch(const service::ManagementHost& host, const WatchLimits& limits, EventFormat format) {
    Watch(host, limits, format).Run();
}

}  // namespace qv::tool
