#include "qvsata/commands/WatchRun.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/WaitingLine.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/system/Console.h"
#include "qvsata/system/StopRequest.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/events/EventJson.h"
#include "qvsata/view/events/EventLine.h"
#include "qvsata/view/events/WatchedText.h"
#include "source/HostIdentity.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

using Clock = std::chrono::steady_clock;

/// Returns whether a source that could not be read was asked again.
bool IsAsked(const std::vector<service::SourceQuery>& queries, const service::SourceQuery& unread) {
    return std::ranges::any_of(queries, [&unread](const service::SourceQuery& query) {
        return EqualsIgnoringCase(query.nameSpace, unread.nameSpace) &&
               (unread.className.empty() || EqualsIgnoringCase(query.className, unread.className));
    });
}

/// Returns a line for each thing that a watch cannot do because the machine has no name.
std::string NameWarnings(const service::ProviderHost& host) {
    const service::ComputerNames names = host.Computer().Computer();
    const service::RecordingSequence* const recordings = host.Recordings();
    std::string lines;
    if (recordings != nullptr && recordings->Size() > 1 && !service::IsNamed(names)) {
        lines += "warning: the recordings name no computer: they may be of several\n";
    }
    if (!HostName(service::RecordedNames(names))) {
        lines += "warning: the computer's name cannot be read: the provider raises no events\n";
    }
    return lines;
}

/// Prints events up to the maximum number.
class EventPrinter {
public:
    /// Prints on standard error what is watched.
    EventPrinter(const service::ProviderHost& host, std::optional<std::size_t> most,
                 AnswerFormat format)
        : host_(host), left_(most), format_(format) {
        const view::OsDisks all = ReadOsDisks(host);
        const std::vector<view::OsDisk>& disks = all.disks;
        WriteErrorFitted(all.disksAreRead ? view::WatchedText(disks) : "disks not readable\n");
        WriteErrorFitted(NameWarnings(host) + view::KeyWarnings(disks) +
                         view::PredictionWarnings(all));
        disks_ = view::KnownDisksOf(disks);
    }

    bool IsDone() const { return left_ == 0U; }

    void Print(const service::ObjectList& indications) {
        if (indications.empty()) {
            return;
        }
        view::KnownDisks now = view::KnownDisksOf(ReadOsDisks(host_).disks);
        for (const auto& indication : indications) {
            if (IsDone()) {
                break;
            }
            PrintOne(*indication, now);
            left_ = left_ ? std::optional(*left_ - 1) : left_;
        }
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            throw CommandError("standard output cannot be written");
        }
        disks_ = std::move(now);
    }

private:
    void PrintOne(const service::Object& indication, const view::KnownDisks& now) const {
        const view::DiskEvent event = view::DescribeEvent(ReadObject(indication), disks_, now);
        if (format_ == AnswerFormat::text) {
            return tool::Print(view::EventLine(event, ColumnsOf(Stream::output)));
        }
        nlohmann::ordered_json members = ObjectAsJson(indication);
        if (host_.Recordings() != nullptr) {
            // The provider takes these from the machine on which it runs, not from the recording.
            for (const char* const ofThisMachine : {"OSVersion", "OSType", "NetworkAddresses"}) {
                members.erase(ofThisMachine);
            }
        }
        nlohmann::ordered_json line = view::EventAsJson(event);
        line["indication"] = std::move(members);
        tool::Print(DocumentLine(line));
    }

    const service::ProviderHost& host_;
    std::optional<std::size_t> left_;
    AnswerFormat format_;
    view::KnownDisks disks_;  ///< as they were when events were printed last
};

class Watch {
public:
    Watch(const service::ProviderHost& host, const WatchLimits& limits, AnswerFormat format)
        : host_(host), printer_(host, limits.events, format), feed_(Subscribed(host)) {
        if (limits.time) {
            end_ = Clock::now() + *limits.time;
        }
        isHurried_ = host.Recordings() != nullptr && !limits.realTime;
    }

    void Run() {
        ReportUnreadAtStart();
        using News = service::EventFeed::News;
        while (!printer_.IsDone() && !isReplayed_ && !IsOver()) {
            const News news = feed_->Await(LongestWait(), stop_.Token());
            if (news == News::stopRequested) {
                break;
            }
            if (news == News::timeOut) {
                waiting_.Update();
            } else {
                FinishCycle();
            }
        }
        waiting_.End();
        feed_->End();
        printer_.Print(feed_->Take());
    }

private:
    static std::unique_ptr<service::EventFeed> Subscribed(const service::ProviderHost& host) try {
        return host.Subscribe();
    } catch (const RequestError& error) {
        throw CommandError("starting the event provider: " + service::StatusText(error.status()));
    }

    bool IsOver() const { return end_ && Clock::now() >= *end_; }

    std::chrono::milliseconds LongestWait() const {
        constexpr std::chrono::milliseconds rewriting(1000);
        constexpr std::chrono::milliseconds longest(3600000);
        std::chrono::milliseconds wait = waiting_.IsRewritten() ? rewriting : longest;
        if (end_) {
            wait =
                std::min(wait, std::chrono::ceil<std::chrono::milliseconds>(*end_ - Clock::now()));
        }
        return std::max(wait, std::chrono::milliseconds(0));
    }

    void FinishCycle() {
        waiting_.End();
        printer_.Print(feed_->Take());
        ReportUnread();
        if (printer_.IsDone()) {
            return;
        }
        if (isHurried_) {
            isReplayed_ = !host_.Recordings()->Step();
            if (!isReplayed_) {
                feed_->Hurry();
            }
            return;
        }
        view::SeenRecording seen;
        if (service::RecordingSequence* recordings = host_.Recordings()) {
            seen = {recordings->Position() + 1, recordings->Size()};
            recordings->Step();
        }
        waiting_.Begin(seen, feed_->Pause());
        feed_->LetGo();
    }

    /// Names the sources that could not be read so far. The monitor is not held yet: a query that
    /// runs is left to the end of the cycle.
    void ReportUnreadAtStart() {
        std::vector<service::SourceQuery> queries = host_.Journal().Queries();
        std::erase_if(queries, [](const service::SourceQuery& query) {
            return query.end == service::SourceEnd::pending;
        });
        unread_ = UnreadSources(queries);
        WriteErrorFitted(UnreadLines(unread_));
    }

    /// Names the sources that cannot be read, unless they could not be read before the last cycle
    /// either. A source that the cycle did not ask is as it was. The monitor is held, so no query
    /// runs.
    void ReportUnread() {
        const std::vector<service::SourceQuery> queries = host_.Journal().Queries(reported_);
        reported_ = host_.Journal().Size();
        std::vector<service::SourceQuery> unread = UnreadSources(queries);
        std::ranges::copy_if(
            unread_, std::back_inserter(unread),
            [&](const service::SourceQuery& one) { return !IsAsked(queries, one); });
        const std::set<std::string> lines = LinesOf(unread);
        if (lines != LinesOf(unread_)) {
            WriteErrorFitted(lines.empty() ? "qvsata: every source is readable again\n"
                                           : UnreadLines(unread));
        }
        unread_ = std::move(unread);
        host_.Journal().Condense();
    }

    static std::set<std::string> LinesOf(const std::vector<service::SourceQuery>& unread) {
        std::set<std::string> lines;
        for (const service::SourceQuery& query : unread) {
            lines.insert(SourceLine(query));
        }
        return lines;
    }

    const service::ProviderHost& host_;
    std::size_t reported_ = 0;  ///< the number of queries that ReportUnread has seen
    std::vector<service::SourceQuery> unread_;  ///< the sources that cannot be read
    EventPrinter printer_;
    StopRequest stop_;
    WaitingLine waiting_;
    std::optional<Clock::time_point> end_;
    bool isHurried_ = false;   ///< whether the provider's pauses are skipped
    bool isReplayed_ = false;  ///< whether the last recording of a hurried replay was polled
    std::unique_ptr<service::EventFeed> feed_;
};

}  // namespace

void RunWatch(const service::ProviderHost& host, const WatchLimits& limits, AnswerFormat format) {
    Watch(host, limits, format).Run();
}

}  // namespace qv::tool
