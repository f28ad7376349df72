#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <system_error>

#include "qvsata/commands/Commands.h"
#include "qvsata/commands/Explanation.h"
#include "qvsata/explain/ExplanationText.h"
#include "qvsata/session/MachineAnswer.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/Options.h"
#include "qvsata/session/OsDisks.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "source/Text.h"

namespace qv::tool {
namespace {

std::string DiskLine(const view::OsDisk& disk) {
    return "    " + view::Printable(view::DiskName(disk.number, disk.model)) + ", serial number " +
           view::OrDash(disk.serialNumber) + ", ID " + view::Printable(disk.deviceId) + '\n';
}

/// Returns the drive number that a text is: "1", "#1" or "\\.\PHYSICALDRIVE1".
std::optional<std::int64_t> DriveNumberIn(std::string_view text) {
    for (const std::string_view prefix : {R"(\\.\PHYSICALDRIVE)", "#"}) {
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

/// Returns nothing if `disk` names none of the disks of one of many machines.
std::optional<explain::Explanation> ExplainHost(const service::ProviderHost& host,
                                                const std::string& disk, std::size_t mostJoins,
                                                const MachineAnswer& answer) {
    const view::OsDisks all = ReadOsDisks(host);
    const auto fitting = FittingDisks(all.disks, disk);
    if (!disk.empty() && !all.disksAreRead) {
        throw CommandError("'" + disk + "': disks not readable");
    }
    if (!disk.empty() && fitting.empty() && answer.IsOneOfMany()) {
        return std::nullopt;
    }
    auto [rows, explanation] = ReadExplanation(host, all.disks, mostJoins);
    if (!disk.empty()) {
        if (fitting.size() != 1) {
            RefuseChoice(all.disks, fitting, disk, answer);
        }
        const std::size_t place = PlaceOf(*fitting.front(), rows);
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
        AnswerFormat format = AnswerFormat::text;
    };
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = program.add_subcommand(
        "explain", "for each row of the operating system, whether it is published, and why not");
    command->add_option("DISK", arguments->disk,
                        "a disk: its drive number, or part of its serial number, model or ID "
                        "(default: everything); of several machines, those that have one");
    AddFleetOptions(*command, arguments->options);
    AddAnswerFormat(*command, arguments->format);
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
            if (given.format == AnswerFormat::json) {
                answer.PrintJson(explain::ExplanationAsJson(*explanation));
            } else {
                answer.PrintText(explain::ExplanationAsText(*explanation));
            }
        });
}

}  // namespace qv::tool
