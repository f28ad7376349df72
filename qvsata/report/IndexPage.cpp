#include "qvsata/report/IndexPage.h"

#include <algorithm>
#include <array>
#include <string>

#include "qvsata/report/HostLine.h"
#include "qvsata/report/HostPage.h"
#include "qvsata/report/Standing.h"

namespace qv::report {
namespace {

using view::Severity;

struct Group {
    Severity severity;
    const char* heading;
};

constexpr std::array groups{
    Group{Severity::failed, "Failed"}, Group{Severity::failurePredicted, "Failure predicted"},
    Group{Severity::degraded, "Degraded"}, Group{Severity::unknown, "Unknown or not readable"},
    Group{Severity::fine, "OK"}};

std::size_t CountIn(const Group& group, const std::vector<Host>& hosts) {
    return static_cast<std::size_t>(std::ranges::count_if(
        hosts, [&group](const Host& host) { return StandingOf(host).severity == group.severity; }));
}

std::string GroupHeading(const Group& group, const std::vector<Host>& hosts) {
    return std::string(group.heading) + ": " + std::to_string(CountIn(group, hosts));
}

/// Returns where the section of a host is.
Place PlaceOf(std::size_t host) {
    Place place;
    place.prefix = "h" + std::to_string(host + 1) + '-';
    return place;
}

/// Returns where the sections in that section are.
Place Inside(Place place) {
    ++place.level;
    place.owner = place.Id("host");
    return place;
}

bool HasDetails(const Host& host) {
    return host.details.has_value();
}

void WriteGroup(Html& html, const Group& group, const std::vector<Host>& hosts) {
    const Section section(html, {}, ClassOf(group.severity), GroupHeading(group, hosts));
    const bool areDetailed = std::ranges::any_of(hosts, HasDetails);
    const auto list = html.In("ol", {{"class", "hosts"}});
    for (std::size_t host = 0; host < hosts.size(); ++host) {
        if (StandingOf(hosts[host]).severity != group.severity) {
            continue;
        }
        if (areDetailed) {
            WriteLink(html, hosts[host], PlaceOf(host).Id("host"));
        } else {
            WriteFolded(html, hosts[host]);
        }
    }
}

}  // namespace

void WriteIndexLinks(Html& html, const std::vector<Host>& hosts) {
    const auto list = html.In("ul");
    for (const Group& group : groups) {
        if (CountIn(group, hosts) != 0) {
            const auto item = html.In("li");
            html.Inline("a", GroupHeading(group, hosts),
                        {{"href", '#' + std::string(ClassOf(group.severity))}});
        }
    }
}

void WriteIndex(Html& html, const std::vector<Host>& hosts) {
    for (const Group& group : groups) {
        if (CountIn(group, hosts) != 0) {
            WriteGroup(html, group, hosts);
        }
    }
    for (std::size_t host = 0; host < hosts.size(); ++host) {
        if (!hosts[host].details) {
            continue;
        }
        const Place place = PlaceOf(host);
        const Section section(html, place, "host", TitleOf(hosts[host]));
        html.Line("p", hosts[host].recording, {{"class", "faint"}});
        WriteHost(html, Inside(place), hosts[host]);
    }
}

}  // namespace qv::report
