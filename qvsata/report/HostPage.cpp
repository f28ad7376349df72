#include "qvsata/report/HostPage.h"

#include <algorithm>
#include <map>
#include <ranges>

#include "qvsata/explain/SourceRows.h"
#include "qvsata/report/DiskCard.h"
#include "qvsata/report/EventList.h"
#include "qvsata/report/Standing.h"
#include "qvsata/report/TopologyList.h"
#include "qvsata/report/TopologySvg.h"
#include "qvsata/report/UnreadList.h"
#include "qvsata/report/VerdictList.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

constexpr std::size_t mostCards = 256;
constexpr std::size_t mostBoxes = 256;
constexpr std::string_view notKnown = "Not known.";

std::string CardId(const Place& place, std::size_t disk) {
    return place.Id("disk" + std::to_string(disk));
}

/// Writes the disks that are not OK, the worst first, each with a link to its facts.
void WriteSick(Html& html, const Place& place, const std::vector<view::OsDisk>& disks) {
    std::vector<std::size_t> sick = WorstDisks(disks, mostCards);
    std::erase_if(sick, [&disks](std::size_t disk) {
        return SeverityOf(HealthOf(disks[disk])) == view::Severity::fine;
    });
    if (sick.empty()) {
        return;
    }
    const auto list = html.In("ol", {{"class", "sick"}});
    for (const std::size_t disk : sick) {
        const auto item = html.In("li");
        WriteBadge(html, HealthOf(disks[disk]));
        html.Text(" ");
        html.Inline("a", view::DiskName(disks[disk].number, disks[disk].model),
                    {{"href", '#' + CardId(place, disk)}});
    }
}

void WriteHealth(Html& html, const Place& place, const Host& host) {
    const Section section(html, place, "health", "Health");
    const auto columns = html.In("div", {{"class", "columns"}});
    {
        const auto seen = html.In("div");
        const Standing standing = StandingOf(host);
        html.Line("p", standing.verdict,
                  {{"class", "verdict " + std::string(ClassOf(standing.severity))}});
        html.Line("p", standing.summary);
        WriteSick(html, place, host.disks.disks);
    }
    const auto unseen = html.In("div");
    html.Line(HeadingOf(place.level + 1), "What could not be read");
    WriteUnread(html, host);
}

/// Writes the controllers that have a driver, firmware or a BIOS; nothing if none has.
void WriteSoftware(Html& html, const Place& place, const TopologyItem& computer) {
    const auto hasSoftware = [](const TopologyItem& part) { return !part.detail.empty(); };
    if (std::ranges::none_of(computer.parts, hasSoftware)) {
        return;
    }
    html.Line(HeadingOf(place.level + 1), "Software of controllers");
    const auto list = html.In("ul");
    for (const TopologyItem& part : computer.parts | std::views::filter(hasSoftware)) {
        const auto item = html.In("li");
        html.Inline("bdi", part.name);
        html.Text(": " + part.detail);
    }
}

void WriteTopology(Html& html, const Place& place, const view::Topology& topology) {
    const Section section(html, place, "topology", "Topology");
    const TopologyItem computer = BoundedTo(mostBoxes, ItemOf(topology));
    const auto columns = html.In("div", {{"class", "columns"}});
    {
        const auto picture = html.In("div");
        WriteTopologySvg(html, computer, place.Id("picture"));
    }
    const auto text = html.In("div");
    if (topology.collection) {
        const auto line = html.In("p");
        html.Text("Published status of all disks: ");
        WriteBadge(html, *topology.collection);
    }
    WriteSoftware(html, place, computer);
    const auto details = html.In("details");
    html.Line("summary", "The picture as text");
    WriteTopologyList(html, computer);
}

/// The verdicts on the rows of disks, by the disk's ID and name.
class DiskVerdicts {
public:
    explicit DiskVerdicts(const std::optional<explain::Explanation>& explanation) {
        if (!explanation) {
            return;
        }
        for (const explain::Verdict& verdict : explanation->verdicts) {
            if (verdict.source == explain::source::disks) {
                verdicts_.emplace(std::pair(verdict.id, verdict.name), &verdict);
            }
        }
    }

    const explain::Verdict* Of(const view::OsDisk& disk) const {
        const auto found = verdicts_.find({disk.deviceId, view::DiskName(disk.number, disk.model)});
        return found == verdicts_.end() ? nullptr : found->second;
    }

private:
    std::map<std::pair<std::string, std::string>, const explain::Verdict*> verdicts_;
};

void WriteDisks(Html& html, const Place& place, const Host& host) {
    const Section section(html, place, "disks", "Disks");
    const std::vector<view::OsDisk>& disks = host.disks.disks;
    if (!host.disks.disksAreRead) {
        html.Line("p", "Disks not readable.", {{"class", "caution"}});
    } else if (disks.empty()) {
        html.Line("p", "The operating system has no disks.");
    }
    const DiskVerdicts verdicts(host.details->explanation);
    const auto cards = html.In("div", {{"class", "cards"}});
    std::vector<std::size_t> shown = WorstDisks(disks, mostCards);
    std::ranges::sort(shown);
    for (const std::size_t disk : shown) {
        WriteDiskCard(html, place, CardId(place, disk), disks[disk], verdicts.Of(disks[disk]));
    }
    if (disks.size() > shown.size()) {
        html.Line("p", "And " + std::to_string(disks.size() - shown.size()) +
                           " more disks, which qvsata disks lists.");
    }
}

void WriteSources(Html& html, const Place& place, const std::vector<Source>& sources) {
    const Section section(html, place, "sources", "Sources");
    // Too wide for a phone: it scrolls, also by keyboard.
    const auto scrolled = html.In("div", {{"class", "scroll"},
                                          {"role", "group"},
                                          {"tabindex", "0"},
                                          {"aria-labelledby", place.Id("sources")}});
    const auto table = html.In("table");
    {
        const auto head = html.In("thead");
        const auto row = html.In("tr");
        for (const char* const name : {"Class", "Status", "Rows", "ms", "Namespace"}) {
            html.Inline("th", name, {{"scope", "col"}});
        }
    }
    const auto body = html.In("tbody");
    for (const Source& source : sources) {
        const auto row = html.In("tr");
        html.Inline("th", source.name, {{"scope", "row"}});
        html.Inline("td", source.status,
                    source.isUnread ? Html::Attributes{{"class", "caution"}} : Html::Attributes{});
        html.Inline("td", source.rows);
        html.Inline("td", source.milliseconds);
        html.Inline("td", source.nameSpace);
    }
}

void WriteKeys(Html& html, const Place& place, const Host& host) {
    const Section section(html, place, "keys", "Keys of all disks");
    if (host.keyWarnings.empty()) {
        return html.Line("p", host.details->explanation ? explain::distinctKeys : notKnown);
    }
    const auto list = html.In("ul", {{"class", "caution"}});
    for (const std::string& warning : host.keyWarnings) {
        html.Line("li", warning);
    }
}

}  // namespace

void WriteHost(Html& html, const Place& place, const Host& host) {
    const Details& details = *host.details;
    WriteHealth(html, place, host);
    if (!details.steps.empty()) {
        const Section section(html, place, "events", "Events");
        WriteEvents(html, details.steps);
    }
    WriteTopology(html, place, details.topology);
    WriteDisks(html, place, host);
    {
        const Section section(html, place, "left-out", "Not published, and why");
        if (details.explanation) {
            WriteLeftOut(html, place, *details.explanation);
        } else {
            html.Line("p", notKnown, {{"class", "caution"}});
        }
    }
    WriteSources(html, place, details.sources);
    WriteKeys(html, place, host);
}

std::vector<std::pair<std::string_view, std::string_view>> SectionsOf(const Host& host) {
    std::vector<std::pair<std::string_view, std::string_view>> sections{
        {"health", "Health"}, {"events", "Events"},          {"topology", "Topology"},
        {"disks", "Disks"},   {"left-out", "Not published"}, {"sources", "Sources"},
        {"keys", "Keys"}};
    if (host.details->steps.empty()) {
        sections.erase(sections.begin() + 1);
    }
    return sections;
}

}  // namespace qv::report
