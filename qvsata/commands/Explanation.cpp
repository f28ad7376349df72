#include "qvsata/commands/Explanation.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "qvsata/explain/Explain.h"
#include "qvsata/explain/JoinLimit.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/session/MachineRun.h"
#include "qvsata/session/PublishedInstances.h"
#include "qvsata/session/Session.h"
#include "qvsata/session/SourceReport.h"
#include "qvsata/view/KeyWarnings.h"
#include "qvsata/view/text/Columns.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"
#include "source/SourceRules.h"

namespace qv::tool {
namespace {

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

}  // namespace

ExplainedHost ReadExplanation(const service::ProviderHost& host,
                              const std::vector<view::OsDisk>& disks, std::size_t mostJoins) {
    explain::SourceRows rows = explain::ReadSourceRows(service::MachineQueries(host.Machine()));
    const view::PublishedHost published =
        ReadExplained(host.Published(), explain::FailingMediaSearch(rows).has_value());
    rows.unread = UnreadClasses(host.Journal().Queries());
    explain::Explanation explanation{Verdicts(rows, published, mostJoins),
                                     {rows.unread.begin(), rows.unread.end()},
                                     KeyLines(rows, disks)};
    return {std::move(rows), std::move(explanation)};
}

std::size_t PlaceOf(const view::OsDisk& disk, const explain::SourceRows& rows) {
    return DiskPlaces(rows.disks).Of(disk);
}

}  // namespace qv::tool
