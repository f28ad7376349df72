// The verdicts on controllers, channels and the drivers that serve them.
#include <algorithm>
#include <array>
#include <utility>

#include "qvsata/explain/Facts.h"
#include "source/PropertyReaders.h"
#include "source/Text.h"

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

std::string NameWithId(const Facts& facts, const std::string& deviceId) {
    const auto found = std::ranges::find_if(facts.rows.controllers, [&](const auto& row) {
        return TextOrEmpty(*row, "DeviceID") == deviceId;
    });
    return found == facts.rows.controllers.end() ? deviceId : ControllerName(**found);
}

// Returns the driver of a family that is published.
const ServingDriver& FirstOfFamily(const Facts& facts, const ServingDriver& driver) {
    return *std::ranges::find_if(facts.rows.drivers, [&](const ServingDriver& one) {
        return one.family == driver.family && one.isFirstOfFamily;
    });
}

std::string FamilyDrivers() {
    std::string names;
    for (const std::string_view name : DriversWithFamily()) {
        names.append(names.empty() ? "" : ", ").append(name);
    }
    return names;
}

// Returns why no software is published for a controller; nothing if some is.
std::optional<Finding> MissingSoftware(const Facts& facts, const std::string& deviceId) {
    std::optional<Finding> missing;
    for (const ServingDriver& driver : facts.rows.drivers) {
        if (driver.controllerId != deviceId) {
            continue;
        }
        if (driver.IsPublished()) {
            return std::nullopt;
        }
        if (driver.family) {
            missing =
                Finding{Rule::hasLaterDriver,
                        {driver.name, NameWithId(facts, FirstOfFamily(facts, driver).controllerId)},
                        softwareOfController};
        } else if (!missing) {
            missing = Finding{
                Rule::hasForeignDriver, {driver.name, FamilyDrivers()}, softwareOfController};
        }
    }
    if (const auto unread = facts.FirstUnread(
            {source::devices, source::entities, source::drivers, source::servingDrivers});
        unread && !missing) {
        return Finding{Rule::unreadDriver, {std::string(*unread)}, softwareOfController};
    }
    return missing ? missing : Finding{Rule::hasNoDriver, {}, softwareOfController};
}

std::optional<Finding> MissingChannels(const Facts& facts, const platform::Row& controller) {
    const bool hasChannel = std::ranges::any_of(facts.rows.controllers, [&](const auto& channel) {
        return IsChannel(TextOrEmpty(*channel, "PNPDeviceID")) &&
               ControllerOfChannel(facts, *channel) == &controller;
    });
    if (hasChannel) {
        return std::nullopt;
    }
    return Finding{facts.FirstUnread({source::links}) ? Rule::unreadChannels : Rule::hasNoChannel,
                   {},
                   {portsOfController}};
}

void NoteController(const Facts& facts, const platform::Row& controller, Verdict& verdict) {
    if (auto missing = MissingChannels(facts, controller)) {
        verdict.notes.push_back(*std::move(missing));
    }
    if (auto missing = MissingSoftware(facts, TextOrEmpty(controller, "DeviceID"))) {
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

std::vector<Verdict> ControllerVerdicts(const Facts& facts, Publisher& publisher) {
    std::vector<Verdict> verdicts;
    for (const auto& controller : facts.rows.controllers) {
        const std::string deviceId = TextOrEmpty(*controller, "DeviceID");
        const std::string pnpDeviceId = TextOrEmpty(*controller, "PNPDeviceID");
        Verdict verdict{source::controllers, ControllerName(*controller), deviceId};
        verdict.disks = DisksWith(facts, true, [&](std::size_t disk) {
            return facts.links.ControllerOfDisk(facts.diskIds[disk]) == controller.get();
        });
        if (IsPortController(deviceId)) {
            publisher.Publish(verdict, controllerClasses);
            NoteController(facts, *controller, verdict);
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

std::vector<Verdict> DriverVerdicts(const Facts& facts, Publisher& publisher) {
    std::vector<Verdict> verdicts;
    for (const ServingDriver& driver : facts.rows.drivers) {
        const std::string controller = NameWithId(facts, driver.controllerId);
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
            verdict.reason =
                driver.family
                    ? Finding{Rule::isLaterOfFamily,
                              {FirstOfFamily(facts, driver).name,
                               NameWithId(facts, FirstOfFamily(facts, driver).controllerId)}}
                    : Finding{Rule::isForeign, {driver.name, FamilyDrivers()}};
        }
        verdicts.push_back(std::move(verdict));
    }
    return verdicts;
}

}  // namespace qv::explain
