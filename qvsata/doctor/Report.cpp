#include "qvsata/doctor/Report.h"

#include <algorithm>
#include <array>
#include <string>

#include "qvsata/view/JsonValues.h"
#include "qvsata/view/text/Characters.h"

namespace qv::doctor {
namespace {

using view::Style;

struct StateText {
    State state;
    const char* text;
    Style style;
};

constexpr std::array stateTexts{
    StateText{State::ok, "OK", Style::good},
    StateText{State::note, "note", Style::plain},
    StateText{State::problem, "problem", Style::bad},
    StateText{State::notChecked, "not checked", Style::caution},
    StateText{State::uncheckable, "not checked", Style::faint},
};

const StateText& TextOf(State state) {
    return *std::ranges::find(stateTexts, state, &StateText::state);
}

std::size_t LongestName(const std::vector<Link>& links) {
    std::size_t longest = 0;
    for (const Link& link : links) {
        longest = std::max(longest, link.name.size());
    }
    return longest;
}

bool HasAny(const std::vector<Link>& links, State state) {
    return std::ranges::any_of(links,
                               [state](const Link& link) { return link.finding.state == state; });
}

}  // namespace

view::StyledText LinksAsText(const std::vector<Link>& links) {
    view::StyledText text;
    const std::size_t width = LongestName(links) + 2;
    for (const Link& link : links) {
        const Finding& finding = link.finding;
        const StateText& state = TextOf(finding.state);
        text.push_back({std::string(link.name).append(width - link.name.size(), ' ')});
        text.push_back({state.text, state.style});
        text.push_back({(finding.text.empty() ? "" : ": " + view::Printable(finding.text)) + '\n'});
        if (!finding.mend.empty()) {
            text.push_back({"    " + view::Printable(finding.mend) + '\n'});
        }
    }
    return text;
}

nlohmann::ordered_json LinksAsJson(const std::vector<Link>& links) {
    nlohmann::ordered_json array = nlohmann::ordered_json::array();
    for (const Link& link : links) {
        array.push_back({{"name", link.name},
                         {"state", TextOf(link.finding.state).text},
                         {"text", view::OrNull(link.finding.text)},
                         {"mend", view::OrNull(link.finding.mend)}});
    }
    return {{"links", array}};
}

State WorstOf(const std::vector<Link>& links) {
    return HasAny(links, State::problem)      ? State::problem
           : HasAny(links, State::notChecked) ? State::notChecked
                                              : State::ok;
}

}  // namespace qv::doctor
