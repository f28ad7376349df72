#include "qvsata/explain/ExplanationText.h"

#include <algorithm>
#include <utility>

#include "qvsata/explain/Sentences.h"
#include "qvsata/explain/SourceRows.h"
#include "qvsata/view/JsonValues.h"
#include "qvsata/view/text/Characters.h"

namespace qv::explain {
namespace {

using view::Printable;
using view::Style;

Style StyleOf(Outcome outcome) {
    return outcome == Outcome::published || outcome == Outcome::used ? Style::plain
                                                                     : Style::caution;
}

void AppendVerdict(const Verdict& verdict, view::StyledText& text) {
    std::string name = verdict.name;
    if (verdict.source == source::disks) {
        name += " (" + verdict.id + ')';
    }
    text.push_back({"  " + Printable(name) + ": "});
    text.push_back({WordsOf(verdict), StyleOf(verdict.outcome)});
    text.push_back({(verdict.reason ? ": " + Printable(Sentence(*verdict.reason)) : "") + '\n'});
    for (const Finding& note : verdict.notes) {
        text.push_back({"    " + Printable(Sentence(note)) + '\n'});
        for (const std::string_view empty : note.empties) {
            text.push_back({"      no " + std::string(empty) + '\n', Style::faint});
        }
    }
}

nlohmann::ordered_json AsJson(const Finding& finding) {
    return {{"rule", NameOf(finding.rule)},
            {"values", finding.values},
            {"sentence", Sentence(finding)},
            {"emptyAssociations", finding.empties}};
}

nlohmann::ordered_json AsJson(const Verdict& verdict) {
    nlohmann::ordered_json instances = nlohmann::ordered_json::array();
    for (const PublishedAs& instance : verdict.instances) {
        instances.push_back({{"class", instance.className}, {"path", view::OrNull(instance.path)}});
    }
    nlohmann::ordered_json notes = nlohmann::ordered_json::array();
    for (const Finding& note : verdict.notes) {
        notes.push_back(AsJson(note));
    }
    return {{"source", verdict.source},
            {"row", verdict.name},
            {"id", verdict.id},
            {"outcome", NameOf(verdict.outcome)},
            {"instances", std::move(instances)},
            {"reason", verdict.reason ? AsJson(*verdict.reason) : nlohmann::ordered_json()},
            {"notes", std::move(notes)}};
}

}  // namespace

view::StyledText ExplanationAsText(const Explanation& explanation) {
    view::StyledText text;
    for (const std::string_view source : source::All()) {
        view::StyledText lines;
        for (const Verdict& verdict : explanation.verdicts) {
            if (verdict.source == source) {
                AppendVerdict(verdict, lines);
            }
        }
        if (std::ranges::count(explanation.unread, source) != 0) {
            lines.push_back({lines.empty() ? "  not readable\n" : "  further rows not readable\n",
                             Style::caution});
        }
        if (!lines.empty()) {
            text.push_back({std::string(source) + '\n'});
            std::ranges::move(lines, std::back_inserter(text));
        }
    }
    text.push_back({"Keys of all disks\n"});
    for (const std::string& line : explanation.keyWarnings) {
        text.push_back({"  " + Printable(line) + '\n', Style::caution});
    }
    if (explanation.keyWarnings.empty()) {
        text.push_back({"  " + std::string(distinctKeys) + '\n'});
    }
    return text;
}

nlohmann::ordered_json ExplanationAsJson(const Explanation& explanation) {
    nlohmann::ordered_json verdicts = nlohmann::ordered_json::array();
    for (const Verdict& verdict : explanation.verdicts) {
        verdicts.push_back(AsJson(verdict));
    }
    return {{"verdicts", std::move(verdicts)}, {"keyWarnings", explanation.keyWarnings}};
}

}  // namespace qv::explain
