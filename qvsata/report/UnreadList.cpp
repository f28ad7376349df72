#include "qvsata/report/UnreadList.h"

namespace qv::report {

void WriteUnread(Html& html, const Host& host) {
    if (!host.failure.empty()) {
        return html.Line("p", host.failure, {{"class", "caution"}});
    }
    if (host.unread.empty() && host.failures.empty()) {
        return html.Line("p", "Every source that was asked was read.");
    }
    const auto list = html.In("ul", {{"class", "caution"}});
    for (const UnreadSource& source : host.unread) {
        const auto item = html.In("li");
        html.Inline("b", source.name.empty() ? source.nameSpace : source.name);
        html.Text((source.name.empty() ? "" : " of " + source.nameSpace) + ": " + source.status +
                  ": " + source.loss);
    }
    for (const std::string& failure : host.failures) {
        html.Line("li", failure);
    }
}

}  // namespace qv::report
