#include "qvsata/report/Page.h"

#include <algorithm>

#include "qvsata/report/HostPage.h"
#include "qvsata/report/Html.h"
#include "qvsata/report/IndexPage.h"
#include "qvsata/report/Standing.h"
#include "qvsata/report/Style.h"

namespace qv::report {
namespace {

// The longest text of a device.
constexpr std::size_t longestText = 512;
constexpr std::size_t longestTextOfMany = 160;

bool IsOneHost(const std::vector<Host>& hosts) {
    return hosts.size() == 1 && hosts.front().details;
}

std::string Title(const std::vector<Host>& hosts) {
    return hosts.size() == 1 ? TitleOf(hosts.front()) : std::to_string(hosts.size()) + " hosts";
}

void WriteHead(Html& html, const std::string& title) {
    const auto head = html.In("head");
    html.Empty("meta", {{"charset", "utf-8"}});
    html.Empty("meta", {{"http-equiv", "Content-Security-Policy"},
                        {"content", "default-src 'none'; style-src 'unsafe-inline'"}});
    html.Empty("meta", {{"name", "viewport"}, {"content", "width=device-width, initial-scale=1"}});
    html.Empty("meta", {{"name", "color-scheme"}, {"content", "light dark"}});
    html.Line("title", "Disks of " + title);
    const auto element = html.In("style");
    html.Raw(style);
}

std::string SourceOf(const Host& host) {
    if (host.recording.empty()) {
        return "from the machine itself";
    }
    const std::size_t recordings = host.details->steps.size() + 1;
    return recordings == 1
               ? "from the recording " + host.recording + ", which does not say when it was made"
               : "from " + std::to_string(recordings) + " recordings; it shows the last, " +
                     host.recording + ", and the events before it";
}

void WriteHeader(Html& html, const std::vector<Host>& hosts, const Origin& origin) {
    const auto header = html.In("header");
    html.Line("p", "Disks of");
    {
        const auto heading = html.In("h1");
        html.Inline("bdi", Title(hosts));
    }
    html.Line("p",
              "Made " + origin.time + " by " + origin.program + ' ' +
                  (IsOneHost(hosts) ? SourceOf(hosts.front())
                                    : "from recordings, which do not say when they were made") +
                  '.');
}

void WriteNavigation(Html& html, const std::vector<Host>& hosts) {
    const auto navigation = html.In("nav", {{"aria-label", "On this page"}});
    if (!IsOneHost(hosts)) {
        return WriteIndexLinks(html, hosts);
    }
    const auto list = html.In("ul");
    for (const auto& [id, heading] : SectionsOf(hosts.front())) {
        const auto item = html.In("li");
        html.Inline("a", heading, {{"href", '#' + std::string(id)}});
    }
}

void WriteBody(Html& html, const std::vector<Host>& hosts, const Origin& origin) {
    const auto body = html.In("body");
    html.Line("a", "Skip to the report", {{"class", "skip"}, {"href", "#main"}});
    WriteHeader(html, hosts, origin);
    WriteNavigation(html, hosts);
    {
        const auto content = html.In("main", {{"id", "main"}, {"tabindex", "-1"}});
        if (IsOneHost(hosts)) {
            WriteHost(html, {}, hosts.front());
        } else {
            WriteIndex(html, hosts);
        }
    }
    const auto footer = html.In("footer");
    html.Line("p",
              "This page is complete: it has no scripts and loads nothing. It holds the names and "
              "serial numbers of machines and disks.");
}

}  // namespace

std::string PageOf(std::vector<Host> hosts, const Origin& origin) {
    std::ranges::sort(hosts, IsBefore);
    Html html(hosts.size() > mostDetailed ? longestTextOfMany : longestText);
    html.Raw("<!DOCTYPE html>");
    {
        const auto root =
            html.In("html", {{"lang", "en"}, {"xmlns", "http://www.w3.org/1999/xhtml"}});
        WriteHead(html, Title(hosts));
        WriteBody(html, hosts, origin);
    }
    return html.Take() + '\n';
}

std::string HeadlineOf(const std::vector<Host>& hosts) {
    const Host& worst = *std::ranges::min_element(hosts, IsBefore);
    return Title(hosts) + ": " +
           (hosts.size() == 1 ? "" : "the worst is " + TitleOf(worst) + ": ") +
           StandingOf(worst).verdict;
}

}  // namespace qv::report
