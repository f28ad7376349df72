// The words of the verdicts.
#include "qvsata/explain/Sentences.h"

#include <algorithm>
#include <array>

#include "qvsata/explain/SourceRows.h"

namespace qv::explain {
namespace {

struct Wording {
    Rule rule;
    std::string_view name;
    std::string_view sentence;  ///< with %1 and %2 for the values
};

constexpr auto wordings = std::to_array<Wording>({
    {Rule::unreadSource, "unreadSource", "%1 could not be read"},
    {Rule::interfaceType, "interfaceType", R"(InterfaceType is "%1" and only "IDE" is published)"},
    {Rule::failsMediaSearch, "failsMediaSearch",
     "requests for disks, their firmware and their packages fail: the DeviceID of %1 is not a "
     "text"},
    {Rule::raisesEvents, "raisesEvents", "raises events: failure-prediction row %1 names it"},
    {Rule::raisesNoEvents, "raisesNoEvents",
     "raises no events: no failure-prediction row names it"},
    {Rule::unreadEvents, "unreadEvents",
     "events not readable: MSStorageDriver_FailurePredictStatus could not be read"},
    {Rule::failureIsPredicted, "failureIsPredicted",
     "its failure is predicted: PredictFailure of failure-prediction row %1 is TRUE"},
    {Rule::joinsPort, "joinsPort", "joins port %1"},
    {Rule::hangsOnController, "hangsOnController",
     "joins no port: it hangs directly on its controller %1, there is no channel row between them "
     "(usual with the inbox AHCI driver of Windows 8 and later)"},
    {Rule::hangsOnOther, "hangsOnOther",
     "joins no port: it hangs on %1, which is neither a channel nor a published controller"},
    {Rule::channelIsNoInitiator, "channelIsNoInitiator",
     R"(joins no port: the DeviceID of its channel %1 has "&REV_", so it has no initiator endpoint)"},
    {Rule::hasNoLink, "hasNoLink",
     "joins no controller and no port: no Win32_IDEControllerDevice row attaches it to a "
     "Win32_IDEController row"},
    {Rule::unreadLink, "unreadLink", "controller and port not readable: %1 could not be read"},
    {Rule::hasNoMedia, "hasNoMedia",
     R"(is published without a serial number: no Win32_PhysicalMedia row has the Tag "%1")"},
    {Rule::hasEmptySerialNumber, "hasEmptySerialNumber",
     "is published without a serial number: SerialNumber of its Win32_PhysicalMedia row is empty"},
    {Rule::unreadMedia, "unreadMedia",
     "serial number not readable: Win32_PhysicalMedia could not be read"},
    {Rule::showsPartition, "showsPartition", "its storage extent shows partition %1"},
    {Rule::showsLastPartition, "showsLastPartition",
     "its storage extent shows partition %1 only, the last of %2"},
    {Rule::showsNoPartition, "showsNoPartition",
     "its storage extent shows no partition: no Win32_DiskDriveToDiskPartition row joins it with "
     "one"},
    {Rule::unreadPartition, "unreadPartition", "partitions not readable: %1 could not be read"},

    {Rule::isNoController, "isNoController",
     R"(DeviceID "%1" has no "&REV_" as PCI controllers have, and PNPDeviceID "%2" no "IDECHANNEL")"
     " as channels have"},
    {Rule::hasNoChannel, "hasNoChannel", "has no ports: no channel row is attached to it"},
    {Rule::unreadChannels, "unreadChannels",
     "ports not readable: Win32_IDEControllerDevice could not be read"},
    {Rule::hasNoDriver, "hasNoDriver",
     "has no driver, firmware and BIOS: no Win32_SystemDriver row serves its plug-and-play device"},
    {Rule::hasForeignDriver, "hasForeignDriver",
     R"(has no driver, firmware and BIOS: its driver "%1" is none of %2)"},
    {Rule::hasLaterDriver, "hasLaterDriver",
     R"(has no driver, firmware and BIOS: the family of its driver "%1" is published for the first )"
     "controller only, %2"},
    {Rule::unreadDriver, "unreadDriver",
     "driver, firmware and BIOS not readable: %1 could not be read"},
    {Rule::hasNoInitiator, "hasNoInitiator",
     R"(has no initiator endpoint: DeviceID "%1" has "&REV_" or no "IDECHANNEL")"},
    {Rule::channelHasNoController, "channelHasNoController",
     "joins no controller: no Win32_IDEControllerDevice row attaches it to a Win32_IDEController "
     "row"},
    {Rule::channelHangsOnOther, "channelHangsOnOther",
     "joins no controller: it hangs on %1, which is not published as one"},
    {Rule::channelHasNoDisk, "channelHasNoDisk",
     "leads to no disk: no published disk is attached to it"},
    {Rule::unreadDisksOfChannel, "unreadDisksOfChannel",
     "disks not readable: %1 could not be read"},

    {Rule::attaches, "attaches", "attaches %1 to %2"},
    {Rule::namesNoController, "namesNoController",
     R"(its Antecedent "%1" names no Win32_IDEController row)"},
    {Rule::namesUnpublished, "namesUnpublished", "its Dependent is %1, which is not published"},
    {Rule::namesOther, "namesOther", R"(its Dependent "%1" is neither a disk nor a channel)"},
    {Rule::isReplaced, "isReplaced", "a later row attaches %1 to %2, and the last row counts"},

    {Rule::hasSerialNumber, "hasSerialNumber", R"(%1 has its SerialNumber "%2")"},
    {Rule::hasNoText, "hasNoText", "its SerialNumber is empty, so %1 has none"},
    {Rule::isLaterMedia, "isLaterMedia",
     "an earlier row has the same Tag, and the first row counts for %1"},
    {Rule::isMediaOfUnpublished, "isMediaOfUnpublished",
     "its Tag is the DeviceID of %1, which is not published"},
    {Rule::isMediaOfNone, "isMediaOfNone", R"(its Tag "%1" is the DeviceID of no disk)"},

    {Rule::joinsPartition, "joinsPartition", "joins a partition with %1"},
    {Rule::joinsEarlierPartition, "joinsEarlierPartition",
     "the storage extent of %1 shows one partition, the last, and this joins an earlier one"},
    {Rule::linksUnpublished, "linksUnpublished", "its disk %1 is not published"},
    {Rule::linksNothing, "linksNothing",
     R"(its Antecedent "%1" names no disk, or its Dependent "%2" no partition)"},
    {Rule::isShown, "isShown", "the storage extent of %1 shows it"},
    {Rule::isNotLast, "isNotLast",
     "the storage extent of %1 shows one partition, the last, and this is an earlier one"},
    {Rule::isOfUnpublished, "isOfUnpublished", "its disk %1 is not published"},
    {Rule::isOfNoDisk, "isOfNoDisk", "no Win32_DiskDriveToDiskPartition row joins it with a disk"},

    {Rule::predicts, "predicts", "%1 raises events because of it"},
    {Rule::predictsUnpublished, "predictsUnpublished", "it names %1, which is not published"},
    {Rule::predictsNone, "predictsNone", R"(its InstanceName "%1" contains the ID of no disk)"},
    {Rule::predictsFailure, "predictsFailure",
     "%1 raises events because of it, and its failure is predicted (PredictFailure is TRUE)"},
    {Rule::predictsFailureOfUnpublished, "predictsFailureOfUnpublished",
     "it predicts a failure of %1, which is not published"},
    {Rule::predictsFailureOfNone, "predictsFailureOfNone",
     R"(it predicts a failure, and its InstanceName "%1" contains the ID of no disk)"},

    {Rule::isForeign, "isForeign", R"(its Name "%1" is none of %2)"},
    {Rule::isLaterOfFamily, "isLaterOfFamily",
     R"(only the first driver of its family is published, "%1" for %2)"},
    {Rule::servesNoPortController, "servesNoPortController",
     "joins no controller: %1 is not published as one"},

    {Rule::matchesNone, "matchesNone", "no other instance has a matching key"},
});

static_assert(
    [] {
        for (std::size_t place = 0; place < wordings.size(); ++place) {
            if (wordings[place].rule != static_cast<Rule>(place)) {
                return false;
            }
        }
        return wordings.back().rule == Rule::matchesNone;
    }(),
    "the wordings are in the order of the rules");

const Wording& WordingOf(Rule rule) {
    return wordings[static_cast<std::size_t>(rule)];
}

struct Bus {
    std::string_view interfaceType;
    std::string_view remark;
};

constexpr std::array buses{
    Bus{"SCSI",
        "; usual for NVMe, RAID mode and third-party AHCI drivers; what can be done: nothing for "
        "NVMe; for a SATA disk, AHCI mode with the AHCI driver of Windows"},
    Bus{"USB",
        "; usual for USB enclosures and sticks; what can be done: attach a SATA disk to a "
        "SATA port"},
    Bus{"", "; the system reports none"},
};

std::string_view BusRemark(std::string_view interfaceType) {
    const auto* const found = std::ranges::find(buses, interfaceType, &Bus::interfaceType);
    return found == buses.end() ? "" : found->remark;
}

}  // namespace

std::string_view NameOf(Rule rule) {
    return WordingOf(rule).name;
}

std::string Sentence(const Finding& finding) {
    std::string text;
    std::string_view rest = WordingOf(finding.rule).sentence;
    for (auto mark = rest.find('%'); mark != std::string_view::npos; mark = rest.find('%')) {
        text.append(rest.substr(0, mark));
        text.append(finding.values.at(static_cast<std::size_t>(rest[mark + 1] - '1')));
        rest.remove_prefix(mark + 2);
    }
    text.append(rest);
    if (finding.rule == Rule::interfaceType) {
        text.append(BusRemark(finding.values.front()));
    }
    return text;
}

std::string_view NameOf(Outcome outcome) {
    constexpr std::array<std::string_view, 4> names{"published", "used", "unpublished",
                                                    "unreadable"};
    return names[static_cast<std::size_t>(outcome)];
}

std::string WordsOf(const Verdict& verdict) {
    const bool isInstance = verdict.source == source::disks ||
                            verdict.source == source::controllers ||
                            verdict.source == source::servingDrivers;
    switch (verdict.outcome) {
        case Outcome::published: {
            std::string words;
            for (const PublishedAs& instance : verdict.instances) {
                words.append(words.empty() ? "published as " : ", ").append(instance.className);
            }
            return words;
        }
        case Outcome::used:
            return "used";
        case Outcome::unpublished:
            return isInstance ? "not published" : "not used";
        case Outcome::unreadable:
            return "not readable";
    }
    return {};
}

}  // namespace qv::explain
