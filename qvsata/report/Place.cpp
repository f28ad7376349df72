#include "qvsata/report/Place.h"

#include <algorithm>
#include <array>

namespace qv::report {

std::string_view HeadingOf(std::size_t level) {
    constexpr std::array<std::string_view, 6> names{"h1", "h2", "h3", "h4", "h5", "h6"};
    return names.at(std::min(level, names.size()) - 1);
}

Section::Section(Html& html, const Place& place, std::string_view name, std::string_view heading)
    : element_(html.In(
          "section",
          {{"class", std::string(name)},
           {"aria-labelledby", place.Id(name) + (place.owner.empty() ? "" : ' ' + place.owner)}})) {
    html.Line(HeadingOf(place.level), heading, {{"id", place.Id(name)}});
}

}  // namespace qv::report
