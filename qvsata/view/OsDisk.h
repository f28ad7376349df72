#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "qvsata/view/Health.h"

namespace qv::view {

/// A disk of the operating system, published or not. A text that the system does not report is
/// empty.
struct OsDisk {
    std::optional<std::int64_t> number;  ///< drive number, as in \\.\PHYSICALDRIVE0
    std::string model;
    std::optional<std::uint64_t> size;  ///< bytes
    std::string serialNumber;           ///< without blanks at its ends
    bool serialNumberIsRead = true;     ///< false: it is not known whether there is one
    std::string firmware;
    std::string bus;               ///< the interface type: IDE, SCSI, USB
    std::string attachment;        ///< the channel or controller, by its ID
    bool attachmentIsRead = true;  ///< false: it is not known whether there is one
    std::string attachmentName;    ///< the same for people: "channel 4&1F2B6C03&0&0", a name
    std::string deviceId;          ///< plug-and-play ID
    Health health;                 ///< the status that the system reports
    /// Unset if the predictions could not be read, or the disk's rows do not tell.
    std::optional<bool> failureIsPredicted;
    bool hasPrediction = false;  ///< whether a failure-prediction row names it
    std::string whyUnpublished;  ///< three words at most; empty for a published disk
    std::string whyUnwatched;    ///< why it raises no events; empty for a watched disk
};

/// All disks of the operating system.
struct OsDisks {
    std::vector<OsDisk> disks;  ///< by drive number; empty if they could not be read
    bool disksAreRead = true;
    bool predictionsAreRead = true;
    /// The devices of the failure-prediction rows that predict a failure but name none of the
    /// disks.
    std::vector<std::string> failingOthers = {};
};

/// Returns the health of a disk, see WithPrediction.
Health HealthOf(const OsDisk& disk);

/// Returns a line for each predicted failure of a device that is none of the disks, and for each
/// disk of which it is unknown whether a failure is predicted, unless no prediction could be read.
std::string PredictionWarnings(const OsDisks& all);

}  // namespace qv::view
