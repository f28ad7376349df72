#include "qvsata/report/EventList.h"

namespace qv::report {
namespace {

void WriteEventsOf(Html& html, const Step& step) {
    if (!step.events) {
        return html.Line("p", "events not readable", {{"class", "caution"}});
    }
    if (step.events->empty()) {
        return html.Line("p", "no event");
    }
    const auto list = html.In("ul");
    for (const view::DiskEvent& event : *step.events) {
        const auto item = html.In("li");
        html.Inline("span", event.meaning.severity,
                    {{"class", "badge " + std::string(event.meaning.severity)}});
        html.Text(" ");
        html.Inline("b", event.eventId);
        html.Text(" " + SentenceOf(event));
    }
}

}  // namespace

void WriteEvents(Html& html, const std::vector<Step>& steps) {
    const auto list = html.In("ol");
    for (const Step& step : steps) {
        const auto item = html.In("li");
        html.Line("p", step.from + " → " + step.to, {{"class", "step"}});
        WriteEventsOf(html, step);
    }
}

}  // namespace qv::report
