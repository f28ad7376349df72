#include "source/SourceRules.h"

#include "source/PropertyReaders.h"

namespace qv {
namespace {

constexpr std::string_view revisionMark = "&REV_";

}  // namespace

bool IsIdeDisk(const platform::Row& disk) {
    return TextOrEmpty(disk, "InterfaceType") == "IDE";
}

bool IsPortController(std::string_view deviceId) {
    return deviceId.find(revisionMark) != std::string_view::npos;
}

std::string_view RevisionOf(std::string_view deviceId) {
    const auto mark = deviceId.find(revisionMark);
    if (mark == std::string_view::npos) {
        return {};
    }
    const std::string_view revision = deviceId.substr(mark + revisionMark.size());
    return revision.substr(0, revision.find('\\'));
}

const platform::Row* FindMediaOfDisk(const platform::Row& disk, const platform::Rows& media) {
    std::string deviceId;
    const bool known = Succeeded(GetStringProperty(disk, "DeviceID", deviceId));
    for (const auto& row : media) {
        if (!known) {
            throw RequestError(Status::unspecifiedFailure);
        }
        if (TextOrEmpty(*row, "Tag") == deviceId) {
            return row.get();
        }
    }
    return nullptr;
}

}  // namespace qv
