#include "qvsata/view/check/DiskCheck.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "qvsata/view/text/NameList.h"

namespace qv::view {
namespace {

// So that the first line has at most 1 KiB: the performance data takes up to 300 bytes.
constexpr std::size_t mostBytesOfText = 100;
constexpr std::size_t mostBytesOfList = 300;
constexpr std::size_t mostBytesOfReason = 900;

/// In ascending order of what counts: what could not be seen counts more than a warning.
enum class CheckState { ok, warning, unknown, critical };

struct StateName {
    CheckState state;
    std::string_view name;
    int exitCode;
};

constexpr std::array stateNames{
    StateName{CheckState::ok, "OK", 0},
    StateName{CheckState::warning, "WARNING", 1},
    StateName{CheckState::unknown, "UNKNOWN", 3},
    StateName{CheckState::critical, "CRITICAL", 2},
};

/// How a check takes a health, and what its performance data says of disks with it.
struct Judgement {
    Severity severity;
    CheckState state;
    std::string_view label;
    std::string_view thresholds;  ///< the range of a warning, the range of an alarm
};

constexpr std::array judgements{
    Judgement{Severity::fine, CheckState::ok, "ok", ";"},
    Judgement{Severity::unknown, CheckState::unknown, "unknown", ";"},
    Judgement{Severity::degraded, CheckState::warning, "degraded", "0;"},
    Judgement{Severity::failurePredicted, CheckState::critical, "predicted", ";0"},
    Judgement{Severity::failed, CheckState::critical, "failed", ";0"},
};

CheckState StateOf(Severity severity) {
    return std::ranges::find(judgements, severity, &Judgement::severity)->state;
}

struct Finding {
    CheckState state;
    Severity severity;
    std::string name;  ///< what it is about; may be empty
    std::string says;
    std::string details = {};  ///< follows the name in its line
};

/// Returns a text without the characters that begin performance data.
std::string WithoutBars(std::string_view text) {
    std::string harmless(text);
    std::ranges::replace(harmless, '|', '/');
    return harmless;
}

/// Returns a text of a device or a file as a line of the output may hold it.
std::string Harmless(std::string_view text, std::size_t mostBytes = mostBytesOfText) {
    std::string harmless = WithoutBars(Printable(text));
    if (harmless.size() > mostBytes) {
        harmless.replace(Beginning(harmless, mostBytes).size(), std::string::npos, "…");
    }
    return harmless;
}

/// Returns whether no prediction is known for a disk although the predictions were read, and its
/// status is not as bad as a prediction would make it.
bool LacksPrediction(const OsDisks& all, const OsDisk& disk) {
    return all.predictionsAreRead && !disk.failureIsPredicted &&
           SeverityOf(disk.health) < Severity::failurePredicted;
}

Severity JudgedSeverity(const OsDisks& all, const OsDisk& disk) {
    return LacksPrediction(all, disk) ? Severity::unknown : SeverityOf(HealthOf(disk));
}

Finding FindingOn(const OsDisks& all, const OsDisk& disk) {
    const Severity severity = JudgedSeverity(all, disk);
    Finding finding{StateOf(severity), severity,
                    "disk " + Harmless(DiskName(disk.number, disk.model)),
                    Harmless(HealthOf(disk).word)};
    if (LacksPrediction(all, disk)) {
        finding.says += ", unknown whether a failure is predicted";
    }
    if (!disk.serialNumber.empty()) {
        finding.details = " (S/N " + Harmless(SerialNumberText(disk.serialNumber)) + ')';
    }
    if (!disk.whyUnpublished.empty()) {
        finding.details += ", not published (" + Harmless(disk.whyUnpublished) + ')';
    }
    return finding;
}

/// Finds the disks that are not OK, and a published status that is worse than that of each disk.
void FindTroubleOfDisks(const CheckSubject& subject, std::vector<Finding>& findings) {
    Severity worst = Severity::fine;
    for (const OsDisk& disk : subject.all.disks) {
        Finding finding = FindingOn(subject.all, disk);
        worst = std::max(worst, finding.severity);
        if (finding.state != CheckState::ok) {
            findings.push_back(std::move(finding));
        }
    }
    if (subject.consolidated && SeverityOf(*subject.consolidated) > worst) {
        const Severity severity = SeverityOf(*subject.consolidated);
        findings.push_back({StateOf(severity), severity, "published consolidated status",
                            Harmless(subject.consolidated->word)});
    }
    for (const std::string& device : subject.all.failingOthers) {
        findings.push_back(
            {CheckState::critical, Severity::failurePredicted,
             device.empty() ? "device without a name" : "unknown device " + Harmless(device),
             "failure predicted"});
    }
}

/// Returns what is found, the worst first.
std::vector<Finding> FindingsOn(const CheckSubject& subject) {
    std::vector<Finding> findings;
    FindTroubleOfDisks(subject, findings);
    if (subject.expected && subject.published && *subject.published != *subject.expected) {
        const bool tooFew = *subject.published < *subject.expected;
        findings.push_back({tooFew ? CheckState::critical : CheckState::warning,
                            tooFew ? Severity::failed : Severity::degraded,
                            CountOf(*subject.expected, "published disk") + " expected",
                            std::to_string(*subject.published) + " found"});
    }
    std::ranges::stable_sort(findings, std::ranges::greater(), [](const Finding& finding) {
        return std::pair(finding.state, finding.severity);
    });
    return findings;
}

/// Returns the findings as the first line has them. Those that are too many are counted.
std::string ListOf(const std::vector<Finding>& findings) {
    std::string list;
    for (std::size_t place = 0; place < findings.size(); ++place) {
        const std::string next =
            (place == 0 ? "" : ", ") + findings[place].name + ": " + findings[place].says;
        if (place != 0 && list.size() + next.size() > mostBytesOfList) {
            return list + " and " + std::to_string(findings.size() - place) + " more";
        }
        list += next;
    }
    return list;
}

std::string Summary(const CheckSubject& subject, const std::vector<Finding>& findings) {
    std::vector<std::string> parts;
    if (!findings.empty()) {
        parts.push_back(ListOf(findings));
    }
    if (subject.all.disksAreRead) {
        parts.push_back(CountOf(subject.all.disks.size(), "disk"));
        if (subject.published) {
            parts.back() += ", " + std::to_string(*subject.published) + " published";
        }
    }
    if (!subject.unread.empty()) {
        parts.push_back("not readable: " + NameList(subject.unread, [](const Unread& unread) {
                            return Harmless(unread.name);
                        }));
    }
    std::string summary;
    for (const std::string& part : parts) {
        summary += (summary.empty() ? "" : "; ") + part;
    }
    return summary;
}

/// Returns a value as performance data: 'LABEL=VALUE;WARNING;ALARM;LEAST;MOST'.
std::string Datum(std::string_view label, std::size_t value, std::string_view rest) {
    return std::string(label) + '=' + std::to_string(value) + ';' + std::string(rest);
}

/// Returns the ranges outside which a number of published disks is a warning, and an alarm.
std::string ExpectedRange(std::size_t expected) {
    const std::string number = std::to_string(expected);
    return number + ':' + number + ';' + number + ":;0";
}

/// Returns the performance data. What is not known has none: not every engine takes the
/// convention's "U" for a number.
std::string PerformanceData(const CheckSubject& subject) {
    const std::vector<OsDisk>& disks = subject.all.disks;
    std::string data;
    if (subject.all.disksAreRead) {
        data += Datum("disks", disks.size(), ";;0 ");
    }
    if (subject.published) {
        data += Datum("published", *subject.published,
                      subject.expected ? ExpectedRange(*subject.expected) : ";;0");
        data += ' ';
    }
    // A disk whose prediction was not read may be worse than it says.
    if (subject.all.disksAreRead && subject.all.predictionsAreRead) {
        for (const Judgement& judgement : judgements) {
            const auto count = std::ranges::count(
                disks, judgement.severity,
                [&](const OsDisk& disk) { return JudgedSeverity(subject.all, disk); });
            data += Datum(judgement.label, static_cast<std::size_t>(count), judgement.thresholds);
            data += ";0;" + std::to_string(disks.size()) + ' ';
        }
    }
    return data + Datum("unread", subject.unread.size(), ";;0");
}

CheckResult Result(CheckState state, const std::string& summary) {
    const StateName& name = *std::ranges::find(stateNames, state, &StateName::state);
    return {name.exitCode, "SATA " + std::string(name.name) + " - " + summary};
}

}  // namespace

CheckResult CheckDisks(const CheckSubject& subject) {
    const std::vector<Finding> findings = FindingsOn(subject);
    CheckState worst = subject.unread.empty() ? CheckState::ok : CheckState::unknown;
    std::string lines;
    for (const Finding& finding : findings) {
        worst = std::max(worst, finding.state);
        lines += finding.name + finding.details + ": " + finding.says + '\n';
    }
    for (const Unread& unread : subject.unread) {
        lines += WithoutBars(Printable(unread.line)) + '\n';
    }
    CheckResult result = Result(worst, Summary(subject, findings));
    result.text += " | " + PerformanceData(subject) + '\n' + lines +
                   WithoutBars(KeyWarnings(subject.all.disks));
    return result;
}

CheckResult FailedCheck(std::string_view reason, std::string_view details) {
    CheckResult result = Result(CheckState::unknown, Harmless(reason, mostBytesOfReason));
    result.text += '\n' + WithoutBars(details);
    return result;
}

}  // namespace qv::view
