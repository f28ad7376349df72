// The verdicts on controllers, channels and the drivers that serve them.
#include <array>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"

namespace qv::explain {
namespace {

constexpr std::array<std::string_view, 4> controllerClasses{
    "QV_SATAPortController", "QV_SATAPortControllerProduct", "QV_SATAControllerLocation",
    "QV_SATAPortControllerPhysicalPackage"};
constexpr std::array<std::string_view, 1> portClass{"QV_SATALogicalPort"};
constexpr std::array<std::string_view, 1> initiatorClass{"QV_ISATAProtocolEndpoint"};
constexpr std::array<std::string_view, 3> softwareClasses{
    "QV_SATAPortControllerDriver", "QV_SATAPortControllerFW", "QV_SATAPortControllerBIOS"};

constexpr std::string_view portsOfController = "QV_SATAPortControllerSATALogicalPort";
constexpr std::string_view initiatorOfPort = "QV_SATALogicalPortISATAProtocolEndpoint";
constexpr std::string_view pathToDisk = "QV_SATAInitiatorTargetLogicalUnitPath";
const std::vector<std::string_view> softwareOfController{
    "QV_SATAPortControllerDriverSATAPortController", "QV_SATAPortControllerFWSATAPortController",
    "QV_SATAPortControllerBIOSSATAPortController"};

const platform::Row* ControllerOfChannel(const Facts& facts, const platform::Row& channel) {
    return facts.links.ControllerOfChannel(TextOrEmpty(channel, "__PATH"));
}

// What hangs on controllers.
struct Attachments {
    explicit Attachments(const Facts& facts) {
        for (const auto& row : facts.rows.controllers) {
            if (IsChannel(TextOrEmpty(*row, "PNPDeviceID"))) {
                withChannel.insert(ControllerOfChannel(facts, *row));
            }
        }
        for (std::size_t disk = 0; disk < facts.diskIds.size(); ++disk) {
            if (facts.isPublished[disk]) {
                disks[facts.links.ControllerOfDisk(facts.diskIds[disk])].push_back(disk);
            }
        }
    }

    std::unordered_set<const platform::Row*> withChannel;
    std::unordered_map<const platform::Row*, Places> disks;  // the published ones
};

std::string FamilyDrivers() {
    std::string names;
    for (const std::string_view name : DriversWithFamily()) {
        names.append(names.empty() ? "" : ", ").append(name);
    }
    return names;
}

// Returns why no software is published for a controller; nothing if some is.
std::optional<Finding> MissingSoftware(const Facts& facts, const Drivers& drivers,
                                       const std::string& deviceId) {
    std::optional<Finding> missing;
    for (const ServingDriver* const driver : FindOrEmpty(drivers.ofController, deviceId)) {
        if (driver->IsPublished()) {
            return std::nullopt;
        }
        if (driver->family) {
            missing = Finding{Rule::hasLaterDriver,
                              {driver->name, drivers.ControllerOfFamily(*driver)},
                              softwareOfController};
        } else if (!missing) {
            missing = Finding{
                Rule::hasForeignDriver, {driver->name, FamilyDrivers()}, softwareOfController};
        }
    }
    if (const auto unread = facts.FirstUnread(
            {source::devices, source::entities, source::drivers, source::servingDrivers});
        unread && !missing) {
        return Finding{Rule::unreadDriver, {std::string(*unread)}, softwareOfController};
    }
    return missing ? missing : Finding{Rule::hasNoDriver, {}, softwareOfController};
}

void NoteController(const Facts& facts, const Drivers& drivers, bool hasChannel, Verdict& verdict) {
    if (!hasChannel) {
        verdict.notes.push_back(
            {facts.FirstUnread({source::links}) ? Rule::unreadChannels : Rule::hasNoChannel,
             {},
             {portsOfController}});
    }
    if (auto missing = MissingSoftware(facts, drivers, verdict.id)) {
        verdict.notes.push_back(*std::move(missing));
    }
}

void NoteChannel(const Facts& facts, const platform::Row& channel, Verdict& verdict) {
    const std::string deviceId = TextOrEmpty(channel, "DeviceID");
    if (!IsInitiator(deviceId)) {
        verdict.notes.push_back({Rule::hasNoInitiator, {deviceId}, {initiatorOfPort}});
    }
    const auto* const parent = ControllerOfChannel(facts, channel);
    if (parent == nullptr) {
        verdict.notes.push_back(
            {facts.FirstUnread({source::links}) ? Rule::unreadLink : Rule::channelHasNoController,
             {std::string(source::links)},
             {portsOfController}});
    } else if (!IsPortController(TextOrEmpty(*parent, "DeviceID"))) {
        verdict.notes.push_back(
            {Rule::channelHangsOnOther, {ControllerName(*parent)}, {portsOfController}});
    }
    if (verdict.disks.empty()) {
        const auto unread = facts.FirstUnread({source::disks, source::links});
        verdict.notes.push_back(
            unread ? Finding{Rule::unreadDisksOfChannel, {std::string(*unread)}, {pathToDisk}}
                   : Finding{Rule::channelHasNoDisk, {}, {pathToDisk}});
    }
}

}  // namespace

std::vector<Verdict> ControllerVerdicts(const Facts& facts, const Drivers& drivers,
                                        Publisher& publisher) {
    std::vector<Verdict> verdicts;
    Attachments attachments(facts);
    for (const auto& controller : facts.rows.controllers) {
        const std::string deviceId = TextOrEmpty(*controller, "DeviceID");
        const std::string pnpDeviceId = TextOrEmpty(*controller, "PNPDeviceID");
        Verdict verdict{source::controllers, ControllerName(*controller), deviceId};
        verdict.disks = std::move(attachments.disks[controller.get()]);
        if (IsPortController(deviceId)) {
            publisher.Publish(verdict, controllerClasses);
            NoteController(facts, drivers, attachments.withChannel.contains(controller.get()),
                           verdict);
        }
        if (IsChannel(pnpDeviceId)) {
            publisher.Publish(verdict, portClass);
            NoteChannel(facts, *controller, verdict);
        }
        if (IsInitiator(deviceId)) {
            publisher.Publish(verdict, initiatorClass);
        }
        if (verdict.instances.empty()) {
            verdict.outcome = Outcome::unpublished;
            verdict.reason = Finding{Rule::isNoController, {deviceId, pnpDeviceId}};
        }
        verdicts.push_back(std::move(verdict));
    }
    return verdicts;
}

std::vector<Verdict> DriverVerdicts(const Facts& facts, const Drivers& drivers,
                                    Publisher& publisher) {
    std::vector<Verdict> verdicts;
    for (const ServingDriver& driver : facts.rows.drivers) {
        const std::string controller = drivers.NameWithId(driver.controllerId);
        Verdict verdict{source::servingDrivers, driver.name + " for " + controller,
                        driver.name + '|' + driver.controllerId};
        if (driver.IsPublished()) {
            publisher.Publish(verdict, softwareClasses);
            if (!IsPortController(driver.controllerId)) {
                verdict.notes.push_back(
                    {Rule::servesNoPortController, {controller}, softwareOfController});
            }
        } else {
            verdict.outcome = Outcome::unpublished;
            verdict.reason = driver.family
                                 ? Finding{Rule::isLaterOfFamily,
                                           {drivers.published.at(*driver.family)->name,
                                            drivers.ControllerOfFamily(driver)}}
                                 : Finding{Rule::isForeign, {driver.name, FamilyDrivers()}};
        }
        verdicts.push_back(std::move(verdict));
    }
    return verdicts;
}

}  // namespace qv::explain
