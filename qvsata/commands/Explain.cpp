#include "qvsata/explain/Explain.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "qvsata/commands/Commands.h"
#include "qvsata/explain/ExplanationText.h"
#include "qvsata/explain/JoinLimit.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/session/MachineAnswer.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

enum class ExplainFormat { text, json };

/// Returns the instances of the explained classes. Leaves out those whose request fails if it
/// `mayFail`; otherwise throws CommandError for them.
view::PublishedHost ReadExplained(const service::Namespace& nameSpace, bool mayFail) {
    view::PublishedHost published;
    for (const explain::ExplainedClass& one : explain::ExplainedClasses()) {
        service::Answer answer = nameSpace.Enumerate(one.name);
        if (mayFail && !Succeeded(answer.status)) {
            continue;
        }
        auto& instances = published[std::string(one.name)];
        for (const auto& object : Take(std::move(answer))) {
            instances.push_back(ReadObject(*object, one.properties));
        }
    }
    return published;
}

std::set<std::string_view> UnreadClasses(const std::vector<service::SourceQuery>& queries) {
    std::set<std::string_view> unread;
    for (const std::string_view className : explain::source::All()) {
        const auto nameSpace =
            className == explain::source::predictions ? wmiNamespace : cimNamespace;
        if (IsUnread(queries, nameSpace, className)) {
            unread.insert(className);
        }
    }
    return unread;
}

std::string DiskLine(const view::OsDisk& disk) {
    return "    " + view::DiskName(disk.number, disk.model) + ", serial number " +
           view::OrDash(disk.serialNumber) + ", ID " + disk.deviceId + '\n';
}

/// Returns the drive number that a text is: "1", "#1" or "\\.\PHYSICALDRIVE1".
std::optional<std::int64_t> DriveNumberIn(std::string_view text) {
    for (const std::string_view prefix : {"\\\\.\\PHYSICALDRIVE", "#"}) {
        if (EqualsIgnoringCase(text.substr(0, prefix.size()), prefix)) {
            text.remove_prefix(prefix.size());
            break;
        }
    }
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end ? std::optional<std::int64_t>(number) : std::nullopt;
}

bool Fits(const view::OsDisk& disk, const std::string& part) {
    const std::string sought = FoldCase(part);
    const auto has = [&sought](const std::string& text) {
        return FoldCase(text).find(sought) != std::string::npos;
    };
    return has(disk.serialNumber) ||
           has(view::DecodedSerialNumber(disk.serialNumber).value_or("")) || has(disk.model) ||
           has(disk.deviceId) || has(EncodeDeviceId(disk.deviceId));
}

/// Returns the disks that a text names: those with that drive number, otherwise those of which it
/// is part of the serial number, model or ID. A number of few digits is a drive number only.
std::vector<const view::OsDisk*> FittingDisks(const std::vector<view::OsDisk>& disks,
                                              const std::string& text) {
    constexpr std::size_t fewDigits = 3;
    std::vector<const view::OsDisk*> numbered;
    std::vector<const view::OsDisk*> fitting;
    const std::optional<std::int64_t> number = DriveNumberIn(text);
    for (const view::OsDisk& disk : disks) {
        if (number && disk.number == number) {
            numbered.push_back(&disk);
        }
        if (Fits(disk, text)) {
            fitting.push_back(&disk);
        }
    }
    return !numbered.empty() || (number && text.size() <= fewDigits) ? numbered : fitting;
}

/// Lists on standard error the disks among which the user has to choose. Throws CommandError.
[[noreturn]] void RefuseChoice(const std::vector<view::OsDisk>& disks,
                               const std::vector<const view::OsDisk*>& fitting,
                               const std::string& text, const MachineAnswer& answer) {
    std::string lines = fitting.empty() ? "the disks:\n" : "disks that would fit:\n";
    for (const view::OsDisk& disk : disks) {
        const bool isListed = fitting.empty() || std::ranges::count(fitting, &disk) != 0;
        lines += isListed ? DiskLine(disk) : "";
    }
    answer.Warn(lines);
    throw CommandError("'" + text + "' fits " + (fitting.empty() ? "no disk" : "several disks"));
}

/// The places of disks among the rows of their class.
class DiskPlaces {
public:
    explicit DiskPlaces(const platform::Rows& rows) : count_(rows.size()) {
        for (std::size_t place = 0; place < rows.size(); ++place) {
            std::int32_t number = 0;
            const bool isNumbered = Succeeded(GetIntegerProperty(*rows[place], "Index", number));
            byKey_.emplace(Key{TextOrEmpty(*rows[place], "PNPDeviceID"),
                               isNumbered ? std::optional<std::int64_t>(number) : std::nullopt},
                           place);
        }
    }

    /// Returns the place of a disk's first row; the number of rows if it has none.
    std::size_t Of(const view::OsDisk& disk) const {
        const auto found = byKey_.find({disk.deviceId, disk.number});
        return found == byKey_.end() ? count_ : found->second;
    }

private:
    using Key = std::pair<std::string, std::optional<std::int64_t>>;

    std::map<Key, std::size_t> byKey_;
    std::size_t count_;
};

/// Returns the disks with the serial numbers that are published instead of those that the disks
/// report.
std::vector<view::OsDisk> WithPublishedSerialNumbers(const explain::SourceRows& rows,
                                                     std::vector<view::OsDisk> disks) {
    const DiskPlaces places(rows.disks);
    const MediaOfDisks mediaOfDisks(rows.media);
    for (view::OsDisk& disk : disks) {
        const platform::Row& row = *rows.disks.at(places.Of(disk));
        const auto* const media = mediaOfDisks.Of(row);
        disk.serialNumber =
            media == nullptr ? "" : view::Trimmed(TextOrEmpty(*media, "SerialNumber"));
    }
    return disks;
}

std::vector<std::string> KeyLines(const explain::SourceRows& rows,
                                  const std::vector<view::OsDisk>& disks) {
    std::vector<std::string> lines = view::KeyWarningLines(disks);
    if (rows.unread.contains(explain::source::disks)) {
        lines.emplace_back("not readable: Win32_DiskDrive could not be read");
    } else if (rows.unread.contains(explain::source::media)) {
        lines.emplace_back("serial numbers not readable: Win32_PhysicalMedia could not be read");
    } else {
        std::ranges::move(view::SerialNumberWarnings(WithPublishedSerialNumbers(rows, disks)),
                          std::back_inserter(lines));
    }
    return lines;
}

std::vector<explain::Verdict> Verdicts(const explain::SourceRows& rows,
                                       const view::PublishedHost& published,
                                       std::size_t mostJoins) {
    try {
        return explain::Explain(rows, published, mostJoins);
    } catch (const explain::TooManyJoins& error) {
        throw CommandError(std::string(error.what()) + " on this host (--limit)");
    }
}

/// Returns nothing if `disk` names none of the disks of one of many machines.
std::optional<explain::Explanation> ExplainHost(const service::ProviderHost& host,
                                                const std::string& disk, std::size_t mostJoins,
                                                const MachineAnswer& answer) {
    const std::vector<view::OsDisk> disks = ReadOsDisks(host).disks;
    const auto fitting = FittingDisks(disks, disk);
    if (!disk.empty() && IsUnread(host.Journal().Queries(), cimNamespace, "Win32_DiskDrive")) {
        throw CommandError("'" + disk + "': disks not readable");
    }
    if (!disk.empty() && fitting.empty() && answer.IsOneOfMany()) {
        return std::nullopt;
    }
    explain::SourceRows rows = explain::ReadSourceRows(service::MachineQueries(host.Machine()));
    const view::PublishedHost published =
        ReadExplained(host.Published(), explain::FailingMediaSearch(rows).has_value());
    rows.unread = UnreadClasses(host.Journal().Queries());
    explain::Explanation explanation{Verdicts(rows, published, mostJoins),
                                     {rows.unread.begin(), rows.unread.end()},
                                     KeyLines(rows, disks)};
    if (!disk.empty()) {
        if (fitting.size() != 1) {
            RefuseChoice(disks, fitting, disk, answer);
        }
        const std::size_t place = DiskPlaces(rows.disks).Of(*fitting.front());
        std::erase_if(explanation.verdicts, [place](const explain::Verdict& verdict) {
            return std::ranges::count(verdict.disks, place) == 0;
        });
    }
    return explanation;
}

}  // namespace

void AddExplain(CLI::App& program) {
    struct Arguments {
        Options options;
        std::string disk;
        ExplainFormat format = ExplainFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "explain", "for each row of the operating system, whether it is published, and why not");
    command->add_option("DISK", arguments->disk,
                        "a disk: its drive number, or part of its serial number, model or ID "
                        "(default: everything); of several machines, those that have one");
    AddFleetOptions(*command, arguments->options);
    AddFormatOption<ExplainFormat>(*command,
                                   {{"text", ExplainFormat::text}, {"json", ExplainFormat::json}},
                                   arguments->format);
    command->footer(
        "Examples: qvsata explain 1 --host hosts/mixed-buses-failing.json\n"
        "          qvsata explain --host hosts --format json");
    OnRecordings(
        *command, arguments,
        [](const service::ProviderHost& host, const Arguments& given, const MachineAnswer& answer) {
            const auto explanation =
                ExplainHost(host, given.disk, given.options.MostRows(), answer);
            if (!explanation) {
                return;
            }
            if (given.format == ExplainFormat::json) {
                answer.PrintJson(explain::ExplanationAsJson(*explanation));
            } else {
                answer.PrintText(explain::ExplanationAsText(*explanation));
            }
        });
}

}  // namespace qv::tool
