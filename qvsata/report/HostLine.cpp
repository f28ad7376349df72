#include "qvsata/report/HostLine.h"

#include <vector>

#include "qvsata/report/DiskCard.h"
#include "qvsata/report/Standing.h"
#include "qvsata/report/UnreadList.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

void WriteVerdict(Html& html, const Standing& standing) {
    html.Line("span", standing.verdict,
              {{"class", "badge " + std::string(ClassOf(standing.severity))}});
}

void WriteRest(Html& html, const Host& host, const Standing& standing) {
    html.Line("span", standing.summary);
    if (!host.unread.empty()) {
        html.Line("span", view::CountOf(host.unread.size(), "source") + " not read",
                  {{"class", "caution"}});
    }
    if (!host.failures.empty()) {
        html.Line("span", "not all instances readable", {{"class", "caution"}});
    }
}

void WriteDisksOf(Html& html, const Host& host) {
    constexpr std::size_t most = 32;
    const std::vector<view::OsDisk>& disks = host.disks.disks;
    const auto list = html.In("ul");
    for (const std::size_t disk : WorstDisks(disks, most)) {
        WriteDiskLine(html, disks[disk]);
    }
    if (disks.size() > most) {
        html.Line("li", "and " + std::to_string(disks.size() - most) + " more");
    }
}

}  // namespace

void WriteLink(Html& html, const Host& host, const std::string& id) {
    const auto line = html.In("li", {{"class", "line"}});
    const Standing standing = StandingOf(host);
    WriteVerdict(html, standing);
    if (host.details) {
        html.Line("a", TitleOf(host), {{"href", '#' + id}});
    } else {
        html.Line("b", TitleOf(host));
    }
    WriteRest(html, host, standing);
}

void WriteFolded(Html& html, const Host& host) {
    const auto item = html.In("li");
    const auto details = html.In("details");
    {
        const auto line = html.In("summary", {{"class", "line"}});
        const Standing standing = StandingOf(host);
        WriteVerdict(html, standing);
        html.Line("h3", TitleOf(host));
        WriteRest(html, host, standing);
    }
    if (!host.disks.disks.empty()) {
        WriteDisksOf(html, host);
    }
    WriteUnread(html, host);
    for (const std::string& warning : host.keyWarnings) {
        html.Line("p", warning, {{"class", "caution"}});
    }
    html.Line("p", host.recording, {{"class", "faint"}});
}

}  // namespace qv::report
