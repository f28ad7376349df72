#include "source/SourceRules.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "source/PropertyReaders.h"
#include "source/Text.h"

namespace qv {
namespace {

constexpr std::string_view revisionMark = "&REV_";
constexpr std::string_view channelMark = "IDECHANNEL";
constexpr std::string_view keyMark = ".DeviceID=";

constexpr std::array driverFamilies{
    std::pair<std::string_view, ControllerFamily>{"msahci", ControllerFamily::nativeSata},
    std::pair<std::string_view, ControllerFamily>{"pciide", ControllerFamily::pciIde},
    std::pair<std::string_view, ControllerFamily>{"pciidex", ControllerFamily::pciIde},
    std::pair<std::string_view, ControllerFamily>{"atapi", ControllerFamily::atapi},
};

// Returns the text after the first `mark`; the whole text without one (the position after npos is
// 0).
std::string_view AfterFirst(std::string_view text, char mark) {
    return text.substr(text.find(mark) + 1);
}

// Returns the key value in the text from ".DeviceID=" on, without its quotes.
std::string_view KeyValue(std::string_view pathTail) {
    constexpr auto opening = keyMark.size() + 1;
    return pathTail.size() > opening ? pathTail.substr(opening, pathTail.size() - opening - 1)
                                     : std::string_view{};
}

std::vector<std::string> DeviceIds(const platform::Rows& rows) {
    std::vector<std::string> ids;
    ids.reserve(rows.size());
    for (const auto& row : rows) {
        ids.push_back(TextOrEmpty(*row, "DeviceID"));
    }
    return ids;
}

// The form in which the DeviceIDs of disks are searched for in paths.
std::vector<std::string> SoughtDeviceIds(const platform::Rows& disks) {
    std::vector<std::string> ids = DeviceIds(disks);
    std::ranges::transform(ids, ids.begin(), StripBackslashes);
    return ids;
}

std::vector<std::string> AllToUpper(std::vector<std::string> texts) {
    std::ranges::transform(texts, texts.begin(), ToUpper);
    return texts;
}

const platform::Row* Find(const std::unordered_map<std::string, const platform::Row*>& rows,
                          const std::string& key) {
    const auto found = rows.find(key);
    return found == rows.end() ? nullptr : found->second;
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

}  // namespace

bool IsIdeDisk(const platform::Row& disk) {
    return TextOrEmpty(disk, "InterfaceType") == "IDE";
}

bool IsPortController(std::string_view deviceId) {
    return Contains(deviceId, revisionMark);
}

bool IsChannel(std::string_view pnpDeviceId) {
    return Contains(pnpDeviceId, channelMark);
}

bool IsInitiator(std::string_view deviceId) {
    return IsChannel(deviceId) && !IsPortController(deviceId);
}

std::optional<ControllerFamily> FamilyOfDriver(std::string_view driverName) {
    const auto found =
        std::ranges::find(driverFamilies, driverName, &decltype(driverFamilies)::value_type::first);
    return found == driverFamilies.end() ? std::nullopt : std::optional(found->second);
}

std::vector<std::string_view> DriversWithFamily() {
    std::vector<std::string_view> names;
    std::ranges::transform(driverFamilies, std::back_inserter(names),
                           &decltype(driverFamilies)::value_type::first);
    return names;
}

std::string_view RevisionOf(std::string_view deviceId) {
    const auto mark = deviceId.find(revisionMark);
    if (mark == std::string_view::npos) {
        return {};
    }
    const std::string_view revision = deviceId.substr(mark + revisionMark.size());
    return revision.substr(0, revision.find('\\'));
}

std::string_view FirstSegmentOf(std::string_view deviceId) {
    const std::string_view rest = AfterFirst(deviceId, '&');
    return rest.substr(0, rest.find('&'));
}

std::string_view DeviceNumberOf(std::string_view deviceId) {
    return AfterFirst(FirstSegmentOf(deviceId), '_');
}

std::string ChannelLabel(std::string_view channelId) {
    std::string label(channelId.substr(channelId.find(channelMark)));
    if (const auto backslash = label.find('\\'); backslash != std::string::npos) {
        label.replace(backslash, 1, " with ID: ");
    }
    return label;
}

bool IsPredictionOf(std::string_view instanceName, std::string_view pnpDeviceId) {
    return instanceName.find(pnpDeviceId) != std::string_view::npos;
}

bool IsComparableWithMedia(const platform::Row& disk) {
    std::string deviceId;
    return Succeeded(GetStringProperty(disk, "DeviceID", deviceId));
}

void RequireComparableWithMedia(const platform::Row& disk) {
    if (!IsComparableWithMedia(disk)) {
        throw RequestError(Status::unspecifiedFailure);
    }
}

const platform::Row* FindMediaOfDisk(const platform::Row& disk, const platform::Rows& media) {
    if (!media.empty()) {
        RequireComparableWithMedia(disk);
    }
    const std::string deviceId = TextOrEmpty(disk, "DeviceID");
    for (const auto& row : media) {
        if (TextOrEmpty(*row, "Tag") == deviceId) {
            return row.get();
        }
    }
    return nullptr;
}

MediaOfDisks::MediaOfDisks(const platform::Rows& media) {
    for (const auto& row : media) {
        byTag_.emplace(TextOrEmpty(*row, "Tag"), row.get());
    }
}

const platform::Row* MediaOfDisks::Of(const platform::Row& disk) const {
    return IsComparableWithMedia(disk) ? Find(byTag_, TextOrEmpty(disk, "DeviceID")) : nullptr;
}

PredictedDisks::PredictedDisks(std::vector<std::string> pnpDeviceIds)
    : upperIds_(AllToUpper(std::move(pnpDeviceIds))) {}

KeyTable::Places PredictedDisks::Of(const platform::Row& prediction) const {
    return upperIds_.Contained(ToUpper(TextOrEmpty(prediction, "InstanceName")));
}

ControllerPaths::ControllerPaths(const platform::Rows& controllers) {
    for (const auto& controller : controllers) {
        byPath_.emplace(FoldCase(TextOrEmpty(*controller, "__PATH")), controller.get());
    }
}

const platform::Row* ControllerPaths::NamedBy(const platform::Row& link) const {
    return Find(byPath_, FoldCase(TextOrEmpty(link, "Antecedent")));
}

std::string ComparedDiskId(std::string_view pnpDeviceId) {
    return FoldCase(StripBackslashes(pnpDeviceId));
}

std::optional<std::string> ComparedChannelPath(std::string_view path) {
    const auto mark = path.find(keyMark);
    return mark == std::string_view::npos ? std::nullopt
                                          : std::optional<std::string>(path.substr(mark));
}

std::optional<AttachedDevice> DeviceNamedBy(const platform::Row& link) {
    auto path = ComparedChannelPath(TextOrEmpty(link, "Dependent"));
    if (!path) {
        return std::nullopt;
    }
    std::string diskId = ComparedDiskId(KeyValue(*path));
    return AttachedDevice{std::move(diskId), *std::move(path)};
}

ControllerLinks::ControllerLinks(const platform::Rows& links, const platform::Rows& controllers) {
    const ControllerPaths paths(controllers);
    for (const auto& link : links) {
        const platform::Row* controller = paths.NamedBy(*link);
        if (controller == nullptr) {
            continue;
        }
        if (const auto device = DeviceNamedBy(*link)) {
            byDiskId_[device->diskId] = controller;
            byChannelPath_[device->channelPath] = controller;
        }
    }
}

const platform::Row* ControllerLinks::ControllerOfDisk(std::string_view pnpDeviceId) const {
    return Find(byDiskId_, ComparedDiskId(pnpDeviceId));
}

const platform::Row* ControllerLinks::ControllerOfChannel(std::string_view path) const {
    const auto compared = ComparedChannelPath(path);
    return compared ? Find(byChannelPath_, *compared) : nullptr;
}

PartitionNames::PartitionNames(const platform::Rows& disks, const platform::Rows& partitions)
    : diskIds_(SoughtDeviceIds(disks)), partitionIds_(DeviceIds(partitions)) {}

std::optional<JoinedPartition> PartitionNames::JoinedBy(const platform::Row& link) const {
    const auto named = partitionIds_.Contained(TextOrEmpty(link, "Dependent"));
    if (named.empty()) {
        return std::nullopt;
    }
    return JoinedPartition{named.front(),
                           diskIds_.Contained(StripBackslashes(TextOrEmpty(link, "Antecedent")))};
}

KeyTable::Places PartitionNames::DisksWithId(std::string_view deviceId) const {
    return diskIds_.Equal(StripBackslashes(deviceId));
}

PartitionLinks::PartitionLinks(const platform::Rows& disks, const platform::Rows& links,
                               const platform::Rows& partitions)
    : names_(disks, partitions), partitionsOfDisk_(disks.size()) {
    for (const auto& link : links) {
        if (const auto joined = names_.JoinedBy(*link)) {
            for (const std::size_t disk : joined->disks) {
                partitionsOfDisk_[disk].push_back(partitions[joined->partition].get());
            }
        }
    }
}

std::vector<const platform::Row*> PartitionLinks::PartitionsOfDisk(
    std::string_view deviceId) const {
    const auto places = names_.DisksWithId(deviceId);
    return places.empty() ? std::vector<const platform::Row*>{} : partitionsOfDisk_[places.front()];
}

}  // namespace qv
