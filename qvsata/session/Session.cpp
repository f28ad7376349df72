#include "qvsata/session/Session.h"

#include <map>
#include <string>

#include "qvsata/output/Output.h"
#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputMof.h"
#include "qvsata/output/OutputText.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/view/JsonValues.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

/// Names on standard error the paths that several objects of an answer have.
void WarnOfDoubles(const service::ObjectList& objects) {
    std::map<std::string, std::size_t> counts;
    for (const auto& object : objects) {
        ++counts[service::TextOf(*object, "__RELPATH")];
    }
    for (const auto& [path, count] : counts) {
        if (!path.empty() && count > 1) {
            WriteErrorFitted("warning: " + std::to_string(count) + " objects have the path " +
                             view::Printable(path) + '\n');
        }
    }
}

}  // namespace

void RunOnProvider(const Options& options,
                   const std::function<void(const service::ProviderHost&)>& command) {
    if (!MachineRun(options).On({{}, options}, command)) {
        throw CommandEnd(incomplete);
    }
}

nlohmann::ordered_json WithUnread(const service::ProviderHost& host,
                                  nlohmann::ordered_json content) {
    nlohmann::ordered_json unread = nlohmann::ordered_json::array();
    for (const service::SourceQuery& query : UnreadSources(host.Journal().Queries())) {
        unread.push_back({{"namespace", query.nameSpace},
                          {"class", view::OrNull(query.className)},
                          {"status", EndText(query)},
                          {"loss", LossWithout(query.nameSpace, query.className)}});
    }
    content["unread"] = std::move(unread);
    return content;
}

void PrintDocument(const service::ProviderHost& host, nlohmann::ordered_json content) {
    Print(DocumentText(WithUnread(host, std::move(content))));
}

service::ObjectList Take(service::Answer answer) {
    if (!Succeeded(answer.status)) {
        throw CommandError(answer.message);
    }
    return std::move(answer.objects);
}

void PrintAnswer(const service::ProviderHost& host, service::Answer answer, Format format) {
    const service::ObjectList objects = Take(std::move(answer));
    WarnOfDoubles(objects);
    const bool blind = objects.empty() && !UnreadSources(host.Journal().Queries()).empty();
    if (format == Format::json) {
        return PrintDocument(host, {{"objects", ObjectsAsJson(objects)}});
    }
    if (format == Format::mof) {
        return Print(ObjectsAsMof(objects));
    }
    PrintFitted({{blind ? "(not readable)\n" : ObjectsAsText(objects)}});
}

}  // namespace qv::tool
