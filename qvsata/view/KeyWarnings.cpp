#include "qvsata/view/KeyWarnings.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <string_view>
#include <utility>

#include "qvsata/view/text/Columns.h"
#include "qvsata/view/text/NameList.h"
#include "source/KeyTable.h"
#include "source/Text.h"

namespace qv::view {
namespace {

/// The published disks that share a text.
struct DiskGroup {
    std::string text;
    std::vector<std::string> numbers;
};

/// Returns the published disks in groups of one text each, in the order of the groups' first disks.
template <typename TextOf>
std::vector<DiskGroup> PublishedBy(const std::vector<OsDisk>& disks, TextOf textOf) {
    std::vector<DiskGroup> groups;
    std::map<std::string, std::size_t> places;
    for (const OsDisk& disk : disks) {
        if (!disk.whyUnpublished.empty()) {
            continue;
        }
        std::string text = textOf(disk);
        const auto [place, isNew] = places.try_emplace(text, groups.size());
        if (isNew) {
            groups.push_back({std::move(text), {}});
        }
        groups[place->second].numbers.push_back(DriveNumberText(disk.number));
    }
    return groups;
}

template <typename Numbers, typename NumberOf = std::identity>
std::string DisksOf(const Numbers& numbers, NumberOf numberOf = {}) {
    return (numbers.size() == 1 ? "disk " : "disks ") + NameList(numbers, numberOf);
}

std::string SayOf(const std::vector<std::string>& numbers, std::string_view one,
                  std::string_view several) {
    return DisksOf(numbers).append(numbers.size() == 1 ? one : several);
}

/// Returns a line for each group whose ID is part of the IDs of others.
void AppendPartLines(const std::vector<DiskGroup>& groups, std::vector<std::string>& lines) {
    std::vector<std::string> ids;
    std::ranges::transform(groups, std::back_inserter(ids), &DiskGroup::text);
    std::vector<std::vector<const std::string*>> wholes(groups.size());
    const KeyTable parts(std::move(ids));
    for (std::size_t whole = 0; whole < groups.size(); ++whole) {
        for (const std::size_t part : parts.Contained(groups[whole].text)) {
            if (part != whole) {
                for (const std::string& number : groups[whole].numbers) {
                    wholes[part].push_back(&number);
                }
            }
        }
    }
    for (std::size_t part = 0; part < groups.size(); ++part) {
        if (!wholes[part].empty()) {
            lines.push_back(
                "the plug-and-play ID of " + DisksOf(groups[part].numbers) +
                " is part of that of " +
                DisksOf(wholes[part], [](const std::string* number) { return *number; }) +
                ": associations of one may name the other, too");
        }
    }
}

}  // namespace

std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks) {
    std::vector<std::string> lines;
    std::vector<DiskGroup> groups =
        PublishedBy(disks, [](const OsDisk& disk) { return FoldCase(disk.deviceId); });
    for (const DiskGroup& group : groups) {
        if (group.text.empty()) {
            lines.push_back(SayOf(group.numbers, " has", " have") + " no plug-and-play ID");
        } else if (group.numbers.size() > 1) {
            lines.push_back(DisksOf(group.numbers) +
                            " have one plug-and-play ID: their instances have the same keys");
        }
    }
    std::erase_if(groups, [](const DiskGroup& group) { return group.text.empty(); });
    AppendPartLines(groups, lines);
    return lines;
}

std::string KeyWarnings(const std::vector<OsDisk>& disks) {
    std::string lines;
    for (const std::string& line : KeyWarningLines(disks)) {
        lines += "warning: " + line + '\n';
    }
    return lines;
}

std::vector<std::string> SerialNumberWarnings(const std::vector<OsDisk>& disks) {
    std::vector<std::string> lines;
    for (const DiskGroup& group : PublishedBy(disks, std::mem_fn(&OsDisk::serialNumber))) {
        if (group.text.empty()) {
            lines.push_back(SayOf(group.numbers, " is", " are") +
                            " published without a serial number");
        } else if (group.numbers.size() > 1) {
            lines.push_back(DisksOf(group.numbers) +
                            " are published with one serial number: " + group.text);
        }
    }
    return lines;
}

}  // namespace qv::view
