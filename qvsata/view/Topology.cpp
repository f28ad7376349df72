#include "qvsata/view/Topology.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "qvsata/view/Partners.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/text/Columns.h"
#include "source/Text.h"

namespace qv::view {
namespace {

constexpr std::array<std::pair<std::int64_t, std::string_view>, 5> codeWords{
    {{0, "Unknown"}, {2, "OK"}, {3, "Degraded"}, {5, "Pred Fail"}, {6, "Error"}}};

Health StatusOf(const PublishedObject& object, std::string_view codes, std::string_view texts) {
    Health status{object.Number(codes), std::string(Trimmed(object.Text(texts)))};
    if (status.word.empty() && status.code) {
        const auto* known = std::ranges::find(codeWords, *status.code,
                                              &std::pair<std::int64_t, std::string_view>::first);
        status.word = known == codeWords.end() ? "status " + std::to_string(*status.code)
                                               : std::string(known->second);
    }
    if (status.word.empty()) {
        status.word = "no status";
    }
    return status;
}

Health StatusOf(const PublishedObject& object) {
    return StatusOf(object, "OperationalStatus", "StatusDescriptions");
}

/// Joins an ID and what it is connected to in the key of an endpoint or a channel.
constexpr std::string_view link = " connected to ";

/// Returns the end of an endpoint's or a channel's key, which names what it is connected to.
std::string ConnectedTo(const std::string& key) {
    const std::size_t found = key.rfind(link);
    return found == std::string::npos ? std::string() : key.substr(found + link.size());
}

/// A channel's published label takes a third of a line; its ID is enough to tell channels apart.
std::string ChannelName(const PublishedObject& port) {
    constexpr std::string_view label = "IDECHANNEL with ID: ";
    const std::string name = port.Text("ElementName");
    return name.starts_with(label) ? name.substr(label.size()) : name;
}

/// Returns the form in which IDs are compared: a published one is encoded.
std::string ComparedId(const std::string& deviceId) {
    return FoldCase(EncodeDeviceId(deviceId));
}

class Builder {
public:
    Builder(const PublishedHost& host, const OsDisks& osDisks) : host_(host) {
        for (const OsDisk& disk : osDisks.disks) {
            osDisks_.emplace(ComparedId(disk.deviceId), &disk);
            if (!disk.whyUnpublished.empty()) {
                whereUnpublished_.insert(ComparedId(disk.attachment));
                unpublished_.push_back(disk);
            }
        }
    }

    Topology Build() {
        Topology topology;
        for (const PublishedObject& computer : Instances("QV_WinComputerSystem")) {
            topology.computer = computer.Text("Name");
        }
        for (const PublishedObject& collection : Instances("QV_SATAStorageCollection")) {
            topology.collection =
                StatusOf(collection, "GroupOperationalStatus", "GroupStatusDescriptions");
        }
        AddControllers(topology);
        AddChannels(topology);
        AddDisks(topology);
        topology.unpublished = unpublished_;
        return topology;
    }

private:
    const std::vector<PublishedObject>& Instances(std::string_view className) const {
        return InstancesOf(host_, className);
    }

    /// Returns whether an unpublished disk is attached to the controller or channel with a key.
    bool HasUnpublished(const std::string& key) const {
        return whereUnpublished_.contains(ComparedId(key.substr(0, key.find(link))));
    }

    void AddControllers(Topology& topology) {
        const auto drivers = SoftwareByController("QV_SATAPortControllerDriver");
        const auto firmware = SoftwareByController("QV_SATAPortControllerFW");
        const auto bios = SoftwareByController("QV_SATAPortControllerBIOS");
        for (const PublishedObject& object : Instances("QV_SATAPortController")) {
            const std::string identity = object.Identity();
            const auto of =
                [&identity](
                    const std::map<std::string, Software>& known) -> std::optional<Software> {
                const auto found = known.find(identity);
                return found == known.end() ? std::nullopt : std::optional(found->second);
            };
            controllers_.push_back(identity);
            topology.controllers.push_back({object.Text("ElementName"),
                                            object.Text("DeviceID"),
                                            StatusOf(object),
                                            of(drivers),
                                            of(firmware),
                                            of(bios),
                                            {},
                                            {},
                                            HasUnpublished(object.Text("DeviceID"))});
        }
    }

    std::map<std::string, Software> SoftwareByController(const std::string& className) const {
        const Identities partners =
            Partners(host_, className + "SATAPortController", "Antecedent", "Dependent");
        std::map<std::string, Software> software;
        for (const PublishedObject& object : Instances(className)) {
            const std::string controller = Lookup(partners, object.Identity());
            if (!controller.empty()) {
                software[controller] = {object.Text("Name"), object.Text("VersionString")};
            }
        }
        return software;
    }

    void AddChannels(Topology& topology) {
        const Identities controllerOf =
            Partners(host_, "QV_SATAPortControllerSATALogicalPort", "Dependent", "Antecedent");
        for (const PublishedObject& port : Instances("QV_SATALogicalPort")) {
            const std::string identity = port.Identity();
            auto* siblings = &topology.looseChannels;
            const auto controller = std::ranges::find(controllers_, Lookup(controllerOf, identity));
            if (controller != controllers_.end()) {
                siblings = &topology.controllers[Index(controllers_, controller)].channels;
            }
            const std::string deviceId = port.Text("DeviceID");
            siblings->push_back(
                {ChannelName(port), deviceId, StatusOf(port), {}, HasUnpublished(deviceId)});
            channels_[identity] = {siblings, siblings->size() - 1};
        }
    }

    void AddDisks(Topology& topology) {
        const Identities targetOf = Inverted(Partners(
            host_, "QV_TSATAProtocolEndpointSATADiskDrive", "AvailableSAP", "ManagedElement"));
        const Identities initiatorOf =
            Partners(host_, "QV_SATAInitiatorTargetLogicalUnitPath", "Target", "Initiator");
        const Identities portOf = Inverted(
            Partners(host_, "QV_SATALogicalPortISATAProtocolEndpoint", "Antecedent", "Dependent"));
        const Identities extentOf =
            Partners(host_, "QV_SATADiskDriveStorageExtent", "Antecedent", "Dependent");
        const Identities endpointNames = EndpointNames();
        const auto extents = Extents();
        for (const PublishedObject& object : Instances("QV_SATADiskDrive")) {
            const std::string identity = object.Identity();
            const std::string target = Lookup(targetOf, identity);
            const std::string port = Lookup(portOf, Lookup(initiatorOf, target));
            Place(topology, port, ConnectedTo(Lookup(endpointNames, target)))
                .push_back(MakeDisk(object, extents, Lookup(extentOf, identity)));
        }
    }

    Identities EndpointNames() const {
        Identities names;
        for (const PublishedObject& endpoint : Instances("QV_TSATAProtocolEndpoint")) {
            names[endpoint.Identity()] = endpoint.Text("Name");
        }
        return names;
    }

    /// Returns the list for a disk that is attached to a channel, or to the device with an ID.
    std::vector<Disk>& Place(Topology& topology, const std::string& port,
                             const std::string& deviceId) {
        if (const auto channel = channels_.find(port); channel != channels_.end()) {
            const auto& [siblings, index] = channel->second;
            return (*siblings)[index].disks;
        }
        const auto controller =
            std::ranges::find_if(topology.controllers, [&deviceId](const Controller& one) {
                return EqualsIgnoringCase(one.deviceId, deviceId);
            });
        return controller == topology.controllers.end() ? topology.looseDisks : controller->disks;
    }

    using ObjectByIdentity = std::map<std::string, const PublishedObject*>;

    ObjectByIdentity Extents() const {
        ObjectByIdentity extents;
        for (const PublishedObject& extent : Instances("QV_SATAStorageExtent")) {
            extents.emplace(extent.Identity(), &extent);
        }
        return extents;
    }

    Disk MakeDisk(const PublishedObject& object, const ObjectByIdentity& extents,
                  const std::string& extentIdentity) {
        Disk disk;
        disk.model = Trimmed(object.Text("Model"));
        disk.deviceId = object.Text("DeviceID");
        disk.serialNumber = Trimmed(object.Text("SerialNumber"));
        disk.firmware = Trimmed(object.Text("FirmwareRevision"));
        disk.status = StatusOf(object);
        disk.size = BytesOf(object.Text("Size"));
        if (const auto found = extents.find(extentIdentity); found != extents.end()) {
            const PublishedObject& extent = *found->second;
            disk.bootable = extent.Flag("Bootable");
            disk.bootPartition = extent.Flag("BootPartition");
            disk.primaryPartition = extent.Flag("PrimaryPartition");
        }
        if (const OsDisk* const found = OsDiskOf(disk.deviceId, object.Number("Index"))) {
            disk.number = found->number;
            disk.serialNumberIsRead = found->serialNumberIsRead;
            disk.failureIsPredicted = found->failureIsPredicted;
        }
        return disk;
    }

    /// Returns the disk of the operating system with an ID; of several the one with the number.
    const OsDisk* OsDiskOf(const std::string& deviceId, std::optional<std::int64_t> number) const {
        const auto [begin, end] = osDisks_.equal_range(ComparedId(deviceId));
        if (begin != end && std::next(begin) == end) {
            return begin->second;
        }
        const auto numbered = std::find_if(
            begin, end, [&number](const auto& one) { return one.second->number == number; });
        return numbered == end ? nullptr : numbered->second;
    }

    template <typename List, typename Iterator>
    static std::size_t Index(const List& list, Iterator position) {
        return static_cast<std::size_t>(position - list.begin());
    }

    /// The position of a channel: its siblings may still move while channels are added.
    using ChannelPlace = std::pair<std::vector<Channel>*, std::size_t>;

    const PublishedHost& host_;
    /// By their IDs.
    std::multimap<std::string, const OsDisk*> osDisks_;
    std::vector<OsDisk> unpublished_;
    std::set<std::string> whereUnpublished_;  ///< what they are attached to, by its ID
    std::vector<std::string> controllers_;    ///< identities, as in the topology
    std::map<std::string, ChannelPlace> channels_;
};

void Append(const std::vector<Disk>& disks, std::vector<const Disk*>& all) {
    std::ranges::transform(disks, std::back_inserter(all), [](const Disk& disk) { return &disk; });
}

}  // namespace

Topology BuildTopology(const PublishedHost& host, const OsDisks& osDisks) {
    Topology topology = Builder(host, osDisks).Build();
    topology.failingOthers = osDisks.failingOthers;
    topology.unknownPredictions = static_cast<std::size_t>(std::ranges::count_if(
        osDisks.disks, [](const OsDisk& disk) { return !disk.failureIsPredicted; }));
    return topology;
}

Health HealthOf(const Disk& disk) {
    return WithPrediction(disk.status, disk.failureIsPredicted.value_or(false));
}

std::vector<const Disk*> DisksOf(const Topology& topology) {
    std::vector<const Disk*> all;
    for (const Controller& controller : topology.controllers) {
        for (const Channel& channel : controller.channels) {
            Append(channel.disks, all);
        }
        Append(controller.disks, all);
    }
    for (const Channel& channel : topology.looseChannels) {
        Append(channel.disks, all);
    }
    Append(topology.looseDisks, all);
    return all;
}

}  // namespace qv::view
