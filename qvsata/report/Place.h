#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "qvsata/report/Html.h"

namespace qv::report {

/// Where in a page a host is described.
struct Place {
    std::size_t level = 2;    ///< of the headings of its sections
    std::string prefix = {};  ///< of its identifiers: "h3-"; empty if it is the only host
    std::string owner = {};   ///< the heading that tells its sections from those of other hosts

    std::string Id(std::string_view name) const { return prefix + std::string(name); }
};

/// Returns the element of a heading: "h2". The lowest is "h6".
std::string_view HeadingOf(std::size_t level);

/// A section with a heading, by which people and screen readers find it. It ends with this object's
/// life.
class [[nodiscard]] Section {
public:
    /// @param name its identifier, without the prefix, and its class in the style sheet
    Section(Html& html, const Place& place, std::string_view name, std::string_view heading);

private:
    Html::Element element_;
};

}  // namespace qv::report
