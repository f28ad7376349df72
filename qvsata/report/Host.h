#pragma once

#include <optional>
#include <string>
#include <vector>

#include "qvsata/explain/ExplanationText.h"
#include "qvsata/view/OsDisk.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/events/DiskEvent.h"

namespace qv::report {

/// A class that the provider reads, in the words of `qvsata sources`.
struct Source {
    std::string nameSpace;
    std::string name;
    std::string rows;
    std::string milliseconds;
    std::string status;
    bool isUnread = false;  ///< it was asked for, and not all of it was read
};

/// A source that could not be read.
struct UnreadSource {
    std::string nameSpace;
    std::string name;    ///< of the class; empty for the whole namespace
    std::string status;  ///< how the query ended
    std::string loss;    ///< what is lost without it
};

/// What happened from one recording to the next.
struct Step {
    std::string from;
    std::string to;
    std::optional<std::vector<view::DiskEvent>> events;  ///< nothing if they cannot be known
};

/// What only a host with a page of its own has.
struct Details {
    view::Topology topology;
    std::optional<explain::Explanation> explanation;  ///< nothing if it cannot be known
    std::vector<Source> sources;
    std::vector<Step> steps;  ///< of a host with several recordings
};

/// What a report says about a host.
struct Host {
    std::string name;       ///< empty if it cannot be read
    std::string recording;  ///< empty for the machine itself
    std::string failure;    ///< why nothing else is known; empty otherwise
    view::OsDisks disks;
    std::vector<std::string> keyWarnings;
    std::vector<UnreadSource> unread;
    std::vector<std::string> failures;  ///< lines on what the provider failed to do
    std::optional<Details> details;
};

/// Returns the name of a host, or what stands for it: the recording.
std::string TitleOf(const Host& host);

}  // namespace qv::report
