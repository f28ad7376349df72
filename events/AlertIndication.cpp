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

/// An alert that is being filled. Throws RequestError if the indication refuses a property.
class Alert {
public:
    explicit Alert(PropertyTarget& indication) : indication_(indication) {}

    void Put(std::string_view name, std::string value, PropertyType type = PropertyType::string) {
        Require(indication_.Put({std::string(name), std::move(value), type, false}));
    }
    void PutWideText(std::string_view name, std::wstring_view text) {
        Require(indication_.PutWideText(name, text));
    }

    static void Require(Status status) {
        if (!Succeeded(status)) {
            throw RequestError(status);
        }
    }

private:
    PropertyTarget& indication_;
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

std::string NewIdentifier(const platform::SystemFacts& system) {
    std::string guid;
    Alert::Require(system.NewGuid(guid));
    return guid;
}

std::string InDots(const platform::OsVersion& version) {
    return std::to_string(version.majorNumber) + "." + std::to_string(version.minorNumber) + "." +
           std::to_string(version.build);
}

std::string NetworkAddresses(const platform::SystemFacts& system) {
    std::vector<std::string> addresses;
    Alert::Require(system.NetworkAddresses(addresses));
    return JoinList(addresses);
}

std::wstring WideHostName(const platform::HostFacts& host) {
    std::wstring name;
    Alert::Require(GetHostName(host, name) == 0 ? Status::noError : Status::failed);
    return name;
}

}  // namespace

Status FillCommonProperties(PropertyTarget& indication, std::string_view providerName,
                            std::string_view eventId, const AlertSources& sources) try {
    const auto& [queries, host, system, clock] = sources;
    Alert alert(indication);
    alert.Put("ProviderName", std::string(providerName));
    alert.Put("EventID", std::string(eventId));
    alert.Put("IndicationIdentifier", NewIdentifier(system));
    alert.Put("IndicationTime", FormatIndicationTime(clock.Local(), clock.Zone()));
    const platform::OsVersion version = system.Version();
    alert.Put("OSVersion", InDots(version));
    alert.Put("OSType", std::to_string(OsTypeOf(version)), PropertyType::int32);
    alert.Put("NetworkAddresses", NetworkAddresses(system), PropertyType::stringArray);
    Alert::Require(PutSystemIdentity(indication, queries));
    alert.Put("SystemCreationClassName", std::string(GetComputerSystemClassName()));
    alert.PutWideText("SystemName", WideHostName(host));
    Alert::Require(PutProviderVersion(indication, queries));
    Alert::Require(PutEnclosureLocation(indication, queries));
    Alert::Require(PutErrorMetadata(indication, queries, providerName, eventId));
    return Status::noError;
} catch (const RequestError& refused) {
    return refused.status();
}

}  // namespace qv
