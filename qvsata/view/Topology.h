#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/view/Health.h"
#include "qvsata/view/OsDisk.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::view {

struct Disk {
    std::optional<std::int64_t> number;  ///< the operating system's drive number
    std::string model;
    std::string deviceId;
    std::string serialNumber;        ///< without blanks at its ends
    bool serialNumberIsRead = true;  ///< false: it is not known whether there is one
    std::string firmware;
    Health status;  ///< as published
    /// Unset if the predictions could not be read.
    std::optional<bool> failureIsPredicted;  ///< by a failure-prediction row; not published
    std::optional<std::uint64_t> size;       ///< bytes
    /// Flags of the partition that the disk's storage extent shows; unset if it shows none.
    std::optional<bool> bootable;
    std::optional<bool> bootPartition;
    std::optional<bool> primaryPartition;
};

struct Channel {
    std::string name;
    std::string deviceId;
    Health status;
    std::vector<Disk> disks;
    bool hasUnpublished = false;  ///< a disk that is not published is attached
};

/// A driver, firmware or BIOS.
struct Software {
    std::string name;
    std::string version;  ///< empty if none is published
};

struct Controller {
    std::string name;
    std::string deviceId;
    Health status;
    std::optional<Software> driver;
    std::optional<Software> firmware;
    std::optional<Software> bios;
    std::vector<Channel> channels;
    std::vector<Disk> disks;      ///< attached without a channel
    bool hasUnpublished = false;  ///< a disk that is not published is attached without a channel
};

/// What could be read. What was not read is shown as such, never as absent.
struct Sight {
    bool disks = true;
    bool controllers = true;  ///< and channels
    bool attachments = true;  ///< of disks and channels
    bool predictions = true;  ///< of failures
};

/// A host's storage as a tree. Siblings have the order in which they are published.
struct Topology {
    std::string computer;  ///< empty if the host has no name
    std::vector<Controller> controllers;
    std::vector<Channel> looseChannels;  ///< of no published controller
    std::vector<Disk> looseDisks;        ///< not attached to a published object
    Sight sight;
    std::optional<Health> collection;        ///< the published consolidated status of the disks
    std::vector<OsDisk> unpublished;         ///< the other disks of the operating system
    std::vector<std::string> failingOthers;  ///< see OsDisks
    /// The number of disks, published or not, of which it is unknown whether a failure is
    /// predicted.
    std::size_t unknownPredictions = 0;
};

/// The classes whose instances BuildTopology reads.
inline constexpr std::array<std::string_view, 18> topologyClasses{
    "QV_WinComputerSystem",
    "QV_SATAPortController",
    "QV_SATAPortControllerDriver",
    "QV_SATAPortControllerFW",
    "QV_SATAPortControllerBIOS",
    "QV_SATALogicalPort",
    "QV_TSATAProtocolEndpoint",
    "QV_SATADiskDrive",
    "QV_SATAStorageExtent",
    "QV_SATAStorageCollection",
    "QV_SATAPortControllerDriverSATAPortController",
    "QV_SATAPortControllerFWSATAPortController",
    "QV_SATAPortControllerBIOSSATAPortController",
    "QV_SATAPortControllerSATALogicalPort",
    "QV_SATALogicalPortISATAProtocolEndpoint",
    "QV_SATAInitiatorTargetLogicalUnitPath",
    "QV_TSATAProtocolEndpointSATADiskDrive",
    "QV_SATADiskDriveStorageExtent",
};

/// Builds the tree from the published instances and their associations. A disk belongs to the
/// channel to which the path from its target endpoint leads, otherwise to the controller whose ID
/// ends the endpoint's name. An association can match too many partners, because one device ID is
/// the beginning of another; then the longest counts. A disk's drive number and whether its failure
/// is predicted come from the disk of the operating system with its ID; of several, from the one
/// with the published index.
Topology BuildTopology(const PublishedHost& host, const OsDisks& osDisks = {});

/// Returns all disks of a host, in the order of the tree.
std::vector<const Disk*> DisksOf(const Topology& topology);

/// Returns the health of a disk in the tree, see WithPrediction.
Health HealthOf(const Disk& disk);

}  // namespace qv::view
