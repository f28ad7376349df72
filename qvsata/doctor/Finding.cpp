#include "qvsata/doctor/Finding.h"

#include <algorithm>
#include <utility>

namespace qv::doctor {

Finding Problem(std::string text, std::string mend) {
    return {State::problem, std::move(text), std::move(mend)};
}

Finding Worst(const std::vector<Finding>& findings) {
    const auto worst = std::ranges::max_element(findings, {}, &Finding::state);
    return worst == findings.end() ? Finding() : *worst;
}

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string joined;
    for (const std::string& text : texts) {
        joined.append(joined.empty() ? "" : separator).append(text);
    }
    return joined;
}

}  // namespace qv::doctor
