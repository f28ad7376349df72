#pragma once

#include <cstddef>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "qvsata/explain/SourceRows.h"
#include "qvsata/explain/Verdict.h"
#include "qvsata/view/PublishedObject.h"
#include "source/SourceRules.h"

namespace qv::explain {

/// Places of rows in their class, in ascending order.
using Places = std::vector<std::size_t>;

/// Returns what a map has for a key; an empty value if it has nothing.
template <typename Map>
const typename Map::mapped_type& FindOrEmpty(const Map& map, const typename Map::key_type& key) {
    static const typename Map::mapped_type empty{};
    const auto found = map.find(key);
    return found == map.end() ? empty : found->second;
}

/// What all verdicts share: the rows, and what the provider's rules say about them.
struct Facts {
    /// The rows must outlive the object.
    explicit Facts(const SourceRows& sourceRows);

    /// Returns the first of the classes that could not be read.
    std::optional<std::string_view> FirstUnread(
        std::initializer_list<std::string_view> classes) const;

    /// Returns the failure-prediction row that predicts the failure of the disk at a place; null if
    /// there is none. A disk without an ID has none.
    const platform::Row* FailureOf(std::size_t disk) const;

    const SourceRows& rows;
    std::vector<std::string> diskNames;  ///< by place in rows.disks: "#0 Model"
    std::vector<std::string> diskIds;    ///< their PNPDeviceIDs
    std::vector<bool> isPublished;       ///< whether the disk is
    /// By place: the disk's media row; null if it has none or cannot be compared with them.
    std::vector<const platform::Row*> mediaOfDisk;
    std::optional<Finding> mediaSearchFailure;  ///< why requests fail, see FailingMediaSearch
    /// By place: the rows that predict the disk's failure or not, as the events see it.
    std::vector<platform::Rows> predictionsOfDisk;
    std::vector<Places> disksOfPrediction;  ///< the same by place in rows.predictions
    ControllerLinks links;
    std::vector<std::vector<const platform::Row*>> partitionsOfDisk;  ///< by place
};

/// The drivers of controllers by what they serve.
struct Drivers {
    /// The facts must outlive the object.
    explicit Drivers(const Facts& facts);

    /// Returns the controller with an ID for people; the ID if there is none.
    std::string NameWithId(const std::string& deviceId) const;

    /// Returns the controller of the driver that is published of a driver's family.
    std::string ControllerOfFamily(const ServingDriver& driver) const;

    std::unordered_map<std::string, std::string> controllerNames;  ///< of the first with an ID
    std::unordered_map<std::string, std::vector<const ServingDriver*>> ofController;  ///< by ID
    std::map<ControllerFamily, const ServingDriver*> published;
};

/// Names published instances. A builder returns its instances in the order of the rows that it
/// keeps, so the n-th kept row belongs to the n-th instance.
class Publisher {
public:
    explicit Publisher(const view::PublishedHost& published) : published_(published) {}

    /// Makes the verdict's row the next one that is published as each of the classes.
    void Publish(Verdict& verdict, std::span<const std::string_view> classes);

private:
    const view::PublishedHost& published_;
    std::map<std::string_view, std::size_t> next_;
};

/// Returns whether a failure-prediction row predicts a failure.
bool PredictsFailure(const platform::Row& prediction);

/// Returns a controller or channel for people: its name and its ID.
std::string ControllerName(const platform::Row& controller);

/// Returns the key value in a path with one key; the whole text of any other.
std::string KeyIn(const std::string& path);

/// Returns the list (view::NameList) of the names of disks at these places.
std::string NamesOf(const Facts& facts, const Places& disks);

/// Returns those of the disks that are published, or not, as wanted.
Places DisksAmong(const Facts& facts, const Places& disks, bool published);

/// Sets the outcome of a row that no rule joins with another: unreadable if one of the classes was
/// not read, otherwise unpublished because of `finding`.
void LeaveOut(const Facts& facts, Verdict& verdict, std::initializer_list<std::string_view> classes,
              Finding finding);

// The verdicts on the rows of each class, in the order of the rows.
std::vector<Verdict> DiskVerdicts(const Facts& facts, Publisher& publisher);
std::vector<Verdict> MediaVerdicts(const Facts& facts);
std::vector<Verdict> PartitionVerdicts(const Facts& facts);
std::vector<Verdict> PartitionLinkVerdicts(const Facts& facts);
std::vector<Verdict> PredictionVerdicts(const Facts& facts);
std::vector<Verdict> ControllerVerdicts(const Facts& facts, const Drivers& drivers,
                                        Publisher& publisher);
std::vector<Verdict> DriverVerdicts(const Facts& facts, const Drivers& drivers,
                                    Publisher& publisher);
std::vector<Verdict> LinkVerdicts(const Facts& facts);

}  // namespace qv::explain
