#include "events/AlertIndication.h"

#include <algorithm>
#include <array>
#include <string>

#include "events/AlertTime.h"
#include "events/AlertVendorFacts.h"
#include "source/HostIdentity.h"
#include "source/Text.h"

namespace qv {
namespace {

struct Alert {
    PropertyTarget& indication;
    std::string_view providerName;
    std::string_view eventId;
    const AlertSources& sources;

    Status Put(std::string_view name, std::string value,
               PropertyType type = PropertyType::string) const {
        return indication.Put({std::string(name), std::move(value), type, false});
    }
};

struct SystemType {
    std::uint32_t majorNumber;
    std::uint32_t minorNumber;
    int osType;
};

// The 64-bit values of CIM_OperatingSystem.OSType.
constexpr std::array systemTypes{
    SystemType{6, 1, 103}, SystemType{6, 0, 77}, SystemType{5, 2, 70},
    SystemType{5, 1, 67},  SystemType{5, 0, 58},
};
constexpr int otherSystemType = 18;

int OsTypeOf(const platform::OsVersion& version) {
    const auto* found = std::ranges::find_if(systemTypes, [&version](const SystemType& type) {
        return type.majorNumber == version.majorNumber && type.minorNumber == version.minorNumber;
    });
    return found == systemTypes.end() ? otherSystemType : found->osType;
}

Status PutProviderName(const Alert& alert) {
    return alert.Put("ProviderName", std::string(alert.providerName));
}

Status PutEventId(const Alert& alert) {
    return alert.Put("EventID", std::string(alert.eventId));
}

Status PutIdentifier(const Alert& alert) {
    std::string guid;
    const Status made = alert.sources.system.NewGuid(guid);
    return Succeeded(made) ? alert.Put("IndicationIdentifier", std::move(guid)) : made;
}

Status PutTime(const Alert& alert) {
    const platform::Clock& clock = alert.sources.clock;
    return alert.Put("IndicationTime", FormatIndicationTime(clock.Local(), clock.Zone()));
}

Status PutOperatingSystem(const Alert& alert) {
    const platform::OsVersion version = alert.sources.system.Version();
    const Status put = alert.Put("OSVersion", std::to_string(version.majorNumber) + "." +
                                                  std::to_string(version.minorNumber) + "." +
                                                  std::to_string(version.build));
    return Succeeded(put)
               ? alert.Put("OSType", std::to_string(OsTypeOf(version)), PropertyType::int32)
               : put;
}

Status PutNetworkAddresses(const Alert& alert) {
    std::vector<std::string> addresses;
    const Status read = alert.sources.system.NetworkAddresses(addresses);
    return Succeeded(read)
               ? alert.Put("NetworkAddresses", JoinList(addresses), PropertyType::stringArray)
               : read;
}

Status PutSystem(const Alert& alert) {
    return PutSystemIdentity(alert.indication, alert.sources.queries);
}

Status PutHost(const Alert& alert) {
    const Status put =
        alert.Put("SystemCreationClassName", std::string(GetComputerSystemClassName()));
    if (!Succeeded(put)) {
        return put;
    }
    std::wstring name;
    return GetHostName(alert.sources.host, name) == 0
               ? alert.indication.PutWideText("SystemName", name)
               : Status::failed;
}

Status PutVersion(const Alert& alert) {
    return PutProviderVersion(alert.indication, alert.sources.queries);
}

Status PutLocation(const Alert& alert) {
    return PutEnclosureLocation(alert.indication, alert.sources.queries);
}

Status PutMetadata(const Alert& alert) {
    return PutErrorMetadata(alert.indication, alert.sources.queries, alert.providerName,
                            alert.eventId);
}

constexpr std::array steps{
    PutProviderName,    PutEventId,          PutIdentifier, PutTime,
    PutOperatingSystem, PutNetworkAddresses, PutSystem,     PutHost,
    PutVersion,         PutLocation,         PutMetadata,
};

}  // namespace

Status FillCommonProperties(PropertyTarget& indication, std::string_view providerName,
                            std::string_view eventId, const AlertSources& sources) {
    const Alert alert{indication, providerName, eventId, sources};
    for (const auto step : steps) {
        const Status taken = step(alert);
        if (!Succeeded(taken)) {
            return taken;
        }
    }
    return Status::noError;
}

}  // namespace qv
