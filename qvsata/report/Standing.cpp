#include "qvsata/report/Standing.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <tuple>

#include "qvsata/view/HealthCounts.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

using view::Severity;

Severity WorstOf(const view::OsDisks& all) {
    Severity worst = all.failingOthers.empty() ? Severity::fine : Severity::failurePredicted;
    for (const view::OsDisk& disk : all.disks) {
        worst = std::max(worst, SeverityOf(HealthOf(disk)));
    }
    return worst;
}

std::size_t UnknownPredictions(const view::OsDisks& all) {
    return static_cast<std::size_t>(std::ranges::count_if(
        all.disks, [](const view::OsDisk& disk) { return !disk.failureIsPredicted; }));
}

std::string WordsOf(Severity severity, const view::OsDisks& all) {
    const auto count = std::ranges::count_if(all.disks, [severity](const view::OsDisk& disk) {
        return SeverityOf(HealthOf(disk)) == severity;
    });
    const std::string disks = view::CountOf(static_cast<std::size_t>(count), "disk");
    switch (severity) {
        case Severity::failed:
            return disks + " failed";
        case Severity::failurePredicted:
            return "failure predicted for " +
                   (count == 0 ? view::CountOf(all.failingOthers.size(), "unknown device") : disks);
        case Severity::degraded:
            return disks + " degraded";
        case Severity::unknown:
            return disks + " not OK";
        case Severity::fine:
            break;
    }
    return all.disks.empty() ? "no disks" : all.disks.size() == 1 ? "disk OK" : "all disks OK";
}

std::string SummaryOf(const Host& host) {
    const view::OsDisks& all = host.disks;
    std::string summary = all.disksAreRead ? "no disks" : "disks not readable";
    if (!all.disks.empty()) {
        summary =
            CountsSpan(view::CountOf(all.disks.size(), "disk"),
                       view::Counted(all.disks, [](const auto& disk) { return HealthOf(disk); }))
                .text;
    }
    if (!all.failingOthers.empty()) {
        summary +=
            "; failure predicted for " + view::CountOf(all.failingOthers.size(), "unknown device");
    }
    if (!all.predictionsAreRead) {
        summary += "; failure predictions not readable";
    } else if (const std::size_t unknown = UnknownPredictions(all); unknown != 0) {
        summary += "; failure prediction unknown for " + view::CountOf(unknown, "disk");
    }
    return summary;
}

}  // namespace

std::string TitleOf(const Host& host) {
    if (!host.name.empty()) {
        return host.name;
    }
    return host.recording.empty() ? "computer without a name" : host.recording;
}

Standing StandingOf(const Host& host) {
    if (!host.failure.empty()) {
        return {Severity::unknown, "not readable", host.failure};
    }
    const Severity worst = WorstOf(host.disks);
    Standing standing{worst, WordsOf(worst, host.disks), SummaryOf(host)};
    if (worst > Severity::unknown) {
        return standing;
    }
    // Nothing is OK that rests on what was not read.
    if (!host.disks.disksAreRead) {
        return {Severity::unknown, "disks not readable", standing.summary};
    }
    if (worst == Severity::fine && !host.disks.predictionsAreRead) {
        return {Severity::unknown, "failure predictions not readable", standing.summary};
    }
    if (worst == Severity::fine && UnknownPredictions(host.disks) != 0) {
        return {Severity::unknown, "failure prediction unknown", standing.summary};
    }
    return standing;
}

std::vector<std::size_t> WorstDisks(const std::vector<view::OsDisk>& disks, std::size_t most) {
    std::vector<std::size_t> places(disks.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::ranges::stable_sort(places, std::greater(), [&disks](std::size_t place) {
        return SeverityOf(HealthOf(disks[place]));
    });
    places.resize(std::min(places.size(), most));
    return places;
}

bool IsBefore(const Host& one, const Host& other) {
    const auto key = [](const Host& host) {
        const std::size_t unread = host.failure.empty() ? host.unread.size() + host.failures.size()
                                                        : std::numeric_limits<std::size_t>::max();
        return std::tuple(-static_cast<int>(StandingOf(host).severity), ~unread, TitleOf(host),
                          host.recording);
    };
    return key(one) < key(other);
}

std::string_view ClassOf(Severity severity) {
    switch (severity) {
        case Severity::fine:
            return "fine";
        case Severity::unknown:
            return "unknown";
        case Severity::degraded:
            return "degraded";
        case Severity::failurePredicted:
            return "predicted";
        case Severity::failed:
            return "failed";
    }
    return {};
}

}  // namespace qv::report
