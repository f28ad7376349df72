#include "qvsata/view/diff/DiffText.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/diff/Belongings.h"
#include "qvsata/view/diff/ChangeLines.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

using nlohmann::ordered_json;

std::string DiskTitle(const Item& disk) {
    const ordered_json& number = disk.members["number"];
    std::string title =
        "disk " + Printable(DiskName(
                      number.is_null() ? std::nullopt : std::optional(number.get<std::int64_t>()),
                      TextMember(disk, "model")));
    const std::string serialNumber = TextMember(disk, "serialNumber");
    return title + (serialNumber.empty() ? "" : " (S/N " + SerialNumberText(serialNumber) + ')');
}

std::string InstanceTitle(const Item& instance) {
    for (const char* const name : {"ElementName", "Caption", "Name"}) {
        if (const std::string text = TextMember(instance, name); !text.empty()) {
            return Printable(TextMember(instance, "__CLASS") + ' ' + text);
        }
    }
    return Printable(TextMember(instance, "__RELPATH"));
}

class DiffWriter {
public:
    explicit DiffWriter(const HostDiff& diff) : diff_(diff), owners_(diff) {}

    StyledText Write() {
        WriteHeading();
        if (diff_.disks) {
            WriteDisks(*diff_.disks);
        }
        WriteOthers(owners_.Take(""));
        WriteEvents();
        if (diff_.IsEmpty()) {
            Line(diff_.IsComplete() ? "no differences" : "no differences in what could be read");
        }
        return std::move(text_);
    }

private:
    void Line(const std::string& text, Style style = Style::plain) {
        text_.push_back({text, style});
        text_.push_back({"\n"});
    }

    void Detail(const std::string& text) { Line("    " + text); }

    /// Writes "gone: ..." with the first word in its style.
    void Titled(const std::string& word, Style style, const std::string& rest) {
        text_.push_back({word + ':', style});
        Line(' ' + rest);
    }

    void WriteHeading() {
        const auto side = [](const HostDiff::Side& one) {
            return Printable(one.name) + " (" +
                   (one.computer.empty() ? "computer without a name" : Printable(one.computer)) +
                   ')';
        };
        Line("from " + side(diff_.before), Style::faint);
        Line("to   " + side(diff_.now), Style::faint);
        if (diff_.before.computer != diff_.now.computer) {
            Line(
                "different computers: an instance with a computer's name in its path counts as "
                "gone "
                "and new",
                Style::caution);
        }
        WriteNotCompared();
    }

    void WriteNotCompared() {
        const std::string reason = "not compared, because not readable: ";
        if (!diff_.disks) {
            Line(reason + "disks", Style::caution);
        } else if (!diff_.unreadMembers.empty()) {
            Line(reason + "of disks " + Joined(diff_.unreadMembers), Style::caution);
        }
        constexpr std::size_t mostNamed = 4;
        if (const std::size_t count = diff_.unreadClasses.size(); count > mostNamed) {
            Line(reason + std::to_string(count) + " published classes", Style::caution);
        } else if (count > 0) {
            Line(reason + Joined(diff_.unreadClasses), Style::caution);
        }
    }

    void WriteDisks(const Differences& disks) {
        for (const Item& disk : disks.gone) {
            WriteWhole("gone", Style::caution, disk, &Belongings::gone);
        }
        for (const Item& disk : disks.appeared) {
            WriteWhole("new", Style::good, disk, &Belongings::appeared);
        }
        for (const Item& disk : diff_.disksOfEither) {
            const auto changed = std::ranges::find_if(
                disks.changed,
                [&disk](const ChangedItem& one) { return one.now.members == disk.members; });
            const Belongings with = owners_.Take(disk.key);
            if (changed == disks.changed.end() && with.IsEmpty()) {
                continue;
            }
            Titled("changed", Style::caution, DiskTitle(disk));
            if (changed != disks.changed.end()) {
                WriteChanges(*changed);
            }
            WriteBelongings(with);
        }
    }

    void WriteChanges(const ChangedItem& item) {
        for (const std::string& line : LinesOf(item.changes)) {
            Detail(line);
        }
    }

    /// Writes a disk that is gone or new, and how many instances are so with it.
    void WriteWhole(const std::string& word, Style style, const Item& disk,
                    std::vector<const Item*> Belongings::*alike) {
        std::string rest = DiskTitle(disk) + ", " + OrDash(TextMember(disk, "statusWord"));
        if (const auto size = disk.members["size"]; !size.is_null()) {
            rest += ", " + GigabytesText(size.get<std::uint64_t>());
        }
        if (const std::string why = TextMember(disk, "whyUnpublished"); !why.empty()) {
            rest += ", not published: " + Printable(why);
        }
        Belongings with = owners_.Take(disk.key);
        if (const auto counted = std::exchange(with.*alike, {}); !counted.empty()) {
            rest += ", and " + CountText(counted) + " that belong to it";
        }
        Titled(word, style, rest);
        WriteBelongings(with);
    }

    /// Writes what changed with a disk: each change once, with the classes of its instances.
    void WriteBelongings(const Belongings& with) {
        std::vector<std::pair<std::string, std::set<std::string>>> lines;
        for (const ChangedItem* instance : with.changed) {
            for (const std::string& line : LinesOf(instance->changes)) {
                auto known = std::ranges::find(
                    lines, line, &std::pair<std::string, std::set<std::string>>::first);
                if (known == lines.end()) {
                    known = lines.insert(lines.end(), {line, {}});
                }
                known->second.insert(TextMember(instance->now, "__CLASS"));
            }
        }
        for (const auto& [line, classes] : lines) {
            Detail(line + " (" + Joined(classes) + ')');
        }
        WriteCounts("gone", with.gone);
        WriteCounts("new", with.appeared);
    }

    void WriteCounts(const std::string& word, const std::vector<const Item*>& items) {
        if (!items.empty()) {
            Detail(word + ": " + CountText(items));
        }
    }

    /// Returns what people call the members; a class has its own name. Members
    /// may share a label, which then counts once.
    static std::string Joined(const std::set<std::string>& names) {
        std::string list;
        std::set<std::string> labels;
        for (const std::string& name : names) {
            if (const std::string label = LabelOf(name); labels.insert(label).second) {
                list += (list.empty() ? "" : ", ") + label;
            }
        }
        return list;
    }

    /// Writes what belongs to no disk.
    void WriteOthers(const Belongings& others) {
        WriteOtherWhole("gone", Style::caution, others.gone);
        WriteOtherWhole("new", Style::good, others.appeared);
        for (const ChangedItem* instance : others.changed) {
            Titled("changed", Style::caution, InstanceTitle(instance->now));
            WriteChanges(*instance);
        }
    }

    /// Writes the only instance of a class by its name, several as their number; the associations
    /// follow from them.
    void WriteOtherWhole(const std::string& word, Style style,
                         const std::vector<const Item*>& items) {
        std::vector<const Item*> associations;
        std::map<std::string, std::vector<const Item*>> instances;
        for (const Item* item : items) {
            (item->isAssociation ? associations : instances[TextMember(*item, "__CLASS")])
                .push_back(item);
        }
        for (const auto& [className, ofClass] : instances) {
            Titled(word, style,
                   ofClass.size() == 1
                       ? InstanceTitle(*ofClass.front())
                       : std::to_string(ofClass.size()) + " of " + Printable(className));
        }
        if (!associations.empty()) {
            Titled(word, style, CountText(associations) + " between what belongs to no disk");
        }
    }

    void WriteEvents() {
        if (!diff_.events) {
            return Line("events are not known: the watched disks are not readable", Style::caution);
        }
        if (diff_.IsEmpty()) {
            return;
        }
        Line(diff_.events->empty() ? "this change raises no events" : "events of this change:");
        for (const DiskEvent& event : *diff_.events) {
            text_.push_back({"    " + event.eventId + ' ', event.meaning.style});
            Line(SentenceOf(event));
        }
    }

    const HostDiff& diff_;
    Owners owners_;
    StyledText text_;
};

}  // namespace

StyledText DiffAsText(const HostDiff& diff) {
    return DiffWriter(diff).Write();
}

}  // namespace qv::view
