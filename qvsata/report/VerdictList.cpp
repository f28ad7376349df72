#include "qvsata/report/VerdictList.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "qvsata/explain/Sentences.h"
#include "qvsata/explain/SourceRows.h"

namespace qv::report {
namespace {

constexpr std::size_t longestValue = 200;
constexpr std::size_t mostRows = 50;

/// Returns the sentence with short values: its words tell more than the middle of a long value.
std::string SentenceOf(explain::Finding finding) {
    for (std::string& value : finding.values) {
        value = Shortened(value, longestValue);
    }
    return explain::Sentence(finding);
}

bool IsLeftOut(const explain::Verdict& verdict) {
    return verdict.outcome == explain::Outcome::unpublished ||
           verdict.outcome == explain::Outcome::unreadable;
}

/// Writes the rows of a class; nothing if there is nothing to say.
void WriteClass(Html& html, const Place& place, std::string_view source,
                const explain::Explanation& explanation) {
    std::vector<const explain::Verdict*> rows;
    for (const explain::Verdict& verdict : explanation.verdicts) {
        if (verdict.source == source && IsLeftOut(verdict)) {
            rows.push_back(&verdict);
        }
    }
    const bool isUnread = std::ranges::count(explanation.unread, source) != 0;
    if (rows.empty() && !isUnread) {
        return;
    }
    html.Line(HeadingOf(place.level + 1), source);
    const auto list = html.In("ul");
    for (std::size_t row = 0; row < std::min(rows.size(), mostRows); ++row) {
        const auto item = html.In("li");
        html.Inline("bdi", rows[row]->name);
        html.Text(": " + OutcomeOf(*rows[row]));
    }
    if (rows.size() > mostRows) {
        html.Line("li", "and " + std::to_string(rows.size() - mostRows) +
                            " more rows, which qvsata explain lists");
    }
    if (isUnread) {
        html.Line("li", rows.empty() ? "not readable" : "further rows not readable",
                  {{"class", "caution"}});
    }
}

}  // namespace

std::string OutcomeOf(const explain::Verdict& verdict) {
    return WordsOf(verdict) + (verdict.reason ? ": " + SentenceOf(*verdict.reason) : "");
}

void WriteNotes(Html& html, const explain::Verdict& verdict) {
    if (verdict.notes.empty()) {
        return;
    }
    const auto list = html.In("ul", {{"class", "notes"}});
    for (const explain::Finding& note : verdict.notes) {
        html.Line("li", SentenceOf(note));
    }
}

void WriteLeftOut(Html& html, const Place& place, const explain::Explanation& explanation) {
    const bool isComplete = explanation.unread.empty();
    if (isComplete && std::ranges::none_of(explanation.verdicts, IsLeftOut)) {
        return html.Line("p", "Every row of the operating system is published or used.");
    }
    for (const std::string_view source : explain::source::All()) {
        WriteClass(html, place, source, explanation);
    }
}

}  // namespace qv::report
