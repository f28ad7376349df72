#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qv::explain {

/// What becomes of a source row.
enum class Outcome {
    published,    ///< as instances
    used,         ///< it adds to instances of other rows, or to associations
    unpublished,  ///< a rule leaves it out
    unreadable,   ///< it rests on a source that could not be read
};

/// The rules that decide about rows, and what follows from a row. Sentences.cpp words them.
enum class Rule {
    unreadSource,
    // disks
    interfaceType,
    failsMediaSearch,
    raisesEvents,
    raisesNoEvents,
    unreadEvents,
    failureIsPredicted,
    joinsPort,
    hangsOnController,
    hangsOnOther,
    channelIsNoInitiator,
    hasNoLink,
    unreadLink,
    hasNoMedia,
    hasEmptySerialNumber,
    unreadMedia,
    showsPartition,
    showsLastPartition,
    showsNoPartition,
    unreadPartition,
    // controllers and channels
    isNoController,
    hasNoChannel,
    unreadChannels,
    hasNoDriver,
    hasForeignDriver,
    hasLaterDriver,
    unreadDriver,
    hasNoInitiator,
    channelHasNoController,
    channelHangsOnOther,
    channelHasNoDisk,
    unreadDisksOfChannel,
    // links
    attaches,
    namesNoController,
    namesUnpublished,
    namesOther,
    isReplaced,
    // media
    hasSerialNumber,
    hasNoText,
    isLaterMedia,
    isMediaOfUnpublished,
    isMediaOfNone,
    // partitions and their links
    joinsPartition,
    joinsEarlierPartition,
    linksUnpublished,
    linksNothing,
    isShown,
    isNotLast,
    isOfUnpublished,
    isOfNoDisk,
    // failure predictions
    predicts,
    predictsUnpublished,
    predictsNone,
    predictsFailure,
    predictsFailureOfUnpublished,
    predictsFailureOfNone,
    // drivers
    isForeign,
    isLaterOfFamily,
    servesNoPortController,
    // associations
    matchesNone,
};

/// A rule with the values that it found.
struct Finding {
    Rule rule;
    std::vector<std::string> values{};  ///< in the order of the rule's sentence
    /// The association classes that have no instance with the row because of it.
    std::vector<std::string_view> empties{};
};

struct PublishedAs {
    std::string_view className;
    std::size_t place = 0;  ///< among the instances of the class
    std::string path;       ///< relative; empty if a key is missing
};

/// What becomes of a source row, and why.
struct Verdict {
    std::string_view source;  ///< the row's class
    std::string name;         ///< the row for people
    std::string id;           ///< what identifies the row in its class
    Outcome outcome = Outcome::published;
    std::vector<PublishedAs> instances{};
    std::optional<Finding> reason{};  ///< unset for a published row
    std::vector<Finding> notes{};
    std::vector<std::size_t> disks{};  ///< the disk rows that it is about, by place
};

}  // namespace qv::explain
