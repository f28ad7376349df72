#include "qvsata/view/KeyWarnings.h"

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <utility>

#include "qvsata/view/text/Columns.h"
#include "source/KeyTable.h"
#include "source/Text.h"

namespace qv::view {
namespace {

/// Disks in a sentence: "disk #0", "disks #0 and #1". Of many disks only the first are named.
class NamedDisks {
public:
    void Add(const std::string& number) {
        if (named_.size() < mostNamed) {
            named_.push_back(number);
        }
        ++count_;
    }

    void Add(const NamedDisks& others) {
        for (const std::string& number : others.named_) {
            Add(number);
        }
        count_ += others.count_ - others.named_.size();
    }

    std::size_t Count() const { return count_; }

    std::string Text() const {
        std::vector<std::string> parts = named_;
        if (count_ > parts.size()) {
            parts.push_back(std::to_string(count_ - parts.size()) + " more");
        }
        std::string text = count_ == 1 ? "disk " : "disks ";
        for (std::size_t place = 0; place < parts.size(); ++place) {
            text += place == 0 ? "" : place + 1 == parts.size() ? " and " : ", ";
            text += parts[place];
        }
        return text;
    }

private:
    static constexpr std::size_t mostNamed = 8;

    std::vector<std::string> named_;
    std::size_t count_ = 0;
};

/// The published disks with one text.
struct Group {
    std::string text;
    NamedDisks disks;
};

/// Returns the published disks by a text, in the order of the first ones; those without are left
/// out.
template <typename Text>
std::vector<Group> GroupedBy(const std::vector<OsDisk>& disks, Text textOf) {
    std::vector<Group> groups;
    std::unordered_map<std::string, std::size_t> byText;
    for (const OsDisk& disk : disks) {
        const std::string text = textOf(disk);
        if (disk.whyUnpublished.empty() && !text.empty()) {
            const auto [found, isNew] = byText.emplace(text, groups.size());
            if (isNew) {
                groups.push_back({text, {}});
            }
            groups[found->second].disks.Add(DriveNumberText(disk.number));
        }
    }
    return groups;
}

/// Returns for each group the disks of the others whose texts its text is part of.
std::vector<NamedDisks> WholesOf(const std::vector<Group>& groups) {
    std::vector<std::string> texts;
    for (const Group& group : groups) {
        texts.push_back(group.text);
    }
    const KeyTable table(std::move(texts));
    std::vector<NamedDisks> wholes(groups.size());
    for (std::size_t whole = 0; whole < groups.size(); ++whole) {
        for (const std::size_t part : table.Contained(groups[whole].text)) {
            if (part != whole) {
                wholes[part].Add(groups[whole].disks);
            }
        }
    }
    return wholes;
}

std::string PartWarning(const NamedDisks& parts, const NamedDisks& wholes) {
    const bool isOne = wholes.Count() == 1;
    return "the plug-and-play ID of " + parts.Text() + " is part of " + (isOne ? "that" : "those") +
           " of " + wholes.Text() + ": associations of one may name the other" +
           (isOne ? "" : "s") + ", too";
}

/// Adds a line for each published disk without a text.
void AddThoseWithout(const std::string OsDisk::*text, const std::string& what,
                     const std::vector<OsDisk>& disks, std::vector<std::string>& lines) {
    for (const OsDisk& disk : disks) {
        if (disk.whyUnpublished.empty() && (disk.*text).empty()) {
            lines.push_back("disk " + DriveNumberText(disk.number) + what);
        }
    }
}

}  // namespace

std::vector<std::string> KeyWarningLines(const std::vector<OsDisk>& disks) {
    std::vector<std::string> lines;
    AddThoseWithout(&OsDisk::deviceId, " has no plug-and-play ID", disks, lines);
    const std::vector<Group> groups =
        GroupedBy(disks, [](const OsDisk& disk) { return FoldCase(disk.deviceId); });
    const std::vector<NamedDisks> wholes = WholesOf(groups);
    for (std::size_t place = 0; place < groups.size(); ++place) {
        const NamedDisks& alike = groups[place].disks;
        if (alike.Count() > 1) {
            lines.push_back(alike.Text() +
                            " have one plug-and-play ID: their instances have the same keys");
        }
        if (wholes[place].Count() > 0) {
            lines.push_back(PartWarning(alike, wholes[place]));
        }
    }
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
    AddThoseWithout(&OsDisk::serialNumber, " is published without a serial number", disks, lines);
    for (const Group& group : GroupedBy(disks, std::mem_fn(&OsDisk::serialNumber))) {
        if (group.disks.Count() > 1) {
            lines.push_back(group.disks.Text() +
                            " are published with one serial number: " + group.text);
        }
    }
    return lines;
}

}  // namespace qv::view
