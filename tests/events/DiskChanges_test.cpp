#include "events/DiskChanges.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

namespace qv::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Events = std::vector<std::pair<std::string, std::string>>;  // event and device

DiskRecord Disk(const std::string& id, std::uint32_t status) {
    DiskRecord disk;
    disk.deviceId = id;
    disk.statusCode = status;
    return disk;
}

Events EventsOf(const DiskList& current, DiskList& previous) {
    Events events;
    for (const DiskChange& change : FindDiskChanges(current, previous)) {
        events.emplace_back(change.eventId, change.disk.deviceId);
    }
    return events;
}

std::string EventOf(std::uint32_t oldStatus, std::uint32_t newStatus) {
    DiskList previous{Disk("A", oldStatus)};
    const Events events = EventsOf({Disk("A", newStatus)}, previous);
    return events.empty() ? "" : events.front().first;
}

/// The table of transitions as agreed with the consumers of the events, case by case.
std::string AgreedEvent(std::uint32_t oldStatus, std::uint32_t newStatus) {
    if (oldStatus == newStatus) {
        return "";
    }
    switch (newStatus) {
        case 2:
            return "602";
        case 3:
            return "604";
        case 5:
            return "605";
        case 6:
            return "603";
        default:
            return oldStatus == 0 || oldStatus == 1 ? "" : "601";
    }
}

using Statuses = std::vector<std::uint32_t>;

Statuses UpTo(std::uint32_t last) {
    Statuses statuses(last + 1);
    std::iota(statuses.begin(), statuses.end(), 0);
    return statuses;
}

/// Returns the changes, old and new status, for which `eventOf` returns another event than agreed.
template <typename EventFunction>
std::vector<std::pair<std::uint32_t, std::uint32_t>> Disagreements(const Statuses& oldStatuses,
                                                                   const Statuses& newStatuses,
                                                                   EventFunction eventOf) {
    std::vector<std::pair<std::uint32_t, std::uint32_t>> changes;
    for (const std::uint32_t oldStatus : oldStatuses) {
        for (const std::uint32_t newStatus : newStatuses) {
            if (eventOf(oldStatus, newStatus) != AgreedEvent(oldStatus, newStatus)) {
                changes.emplace_back(oldStatus, newStatus);
            }
        }
    }
    return changes;
}

TEST(DiskChanges, RaiseTheAgreedEventForEveryPairOfSmallStatuses) {
    EXPECT_THAT(Disagreements(UpTo(40), UpTo(40), EventOf), IsEmpty());
}

TEST(DiskChanges, RaiseTheAgreedEventForEveryStatusOfSixteenBits) {
    const Statuses partners{0, 1, 2, 3, 4, 5, 6, 7, 255, 256, 65535};
    EXPECT_THAT(Disagreements(UpTo(65535), partners, EventOfStatusChange), IsEmpty());
    EXPECT_THAT(Disagreements(partners, UpTo(65535), EventOfStatusChange), IsEmpty());
}

TEST(DiskChanges, RaiseNothingForAStatusThatStaysTheSame) {
    EXPECT_EQ(EventOf(0, 0), "");
    EXPECT_EQ(EventOf(1, 1), "");
    EXPECT_EQ(EventOf(2, 2), "");
    EXPECT_EQ(EventOf(3, 3), "");
    EXPECT_EQ(EventOf(4, 4), "");
    EXPECT_EQ(EventOf(5, 5), "");
    EXPECT_EQ(EventOf(6, 6), "");
    EXPECT_EQ(EventOf(65535, 65535), "");
}

TEST(DiskChanges, RaiseTheEventsOfAFailingDisk) {
    EXPECT_EQ(EventOf(2, 3), "604");
    EXPECT_EQ(EventOf(3, 5), "605");
    EXPECT_EQ(EventOf(5, 6), "603");
    EXPECT_EQ(EventOf(6, 2), "602");
}

TEST(DiskChanges, RaiseTheEventOfAnotherStatusUnlessNothingWasKnown) {
    EXPECT_EQ(EventOf(2, 4), "601");
    EXPECT_EQ(EventOf(2, 0), "601");
    EXPECT_EQ(EventOf(0, 4), "");
    EXPECT_EQ(EventOf(1, 4), "");
    EXPECT_EQ(EventOf(1, 0), "");
}

TEST(DiskChanges, RaiseTheEventOfAnOwnStatusAlsoWhereNothingWasKnown) {
    EXPECT_EQ(EventOf(0, 2), "602");
    EXPECT_EQ(EventOf(1, 6), "603");
}

/// Returns the status in the previous list after a disk's status has changed.
std::uint32_t StatusAfter(std::uint32_t oldStatus, std::uint32_t newStatus) {
    DiskList previous{Disk("A", oldStatus)};
    FindDiskChanges({Disk("A", newStatus)}, previous);
    return previous.front().statusCode;
}

TEST(DiskChanges, ForgetAStatusOfOneWhenNoEventOfItsOwnFollows) {
    EXPECT_EQ(StatusAfter(1, 0), 0U);
    EXPECT_EQ(StatusAfter(1, 1), 0U);
    EXPECT_EQ(StatusAfter(1, 4), 0U);
}

TEST(DiskChanges, LeaveEveryOtherStatusOfThePreviousListAsItIs) {
    EXPECT_EQ(StatusAfter(1, 2), 1U);
    EXPECT_EQ(StatusAfter(2, 4), 2U);
    EXPECT_EQ(StatusAfter(0, 4), 0U);
    EXPECT_EQ(StatusAfter(5, 6), 5U);
}

TEST(DiskChanges, AppendADiskThatAppearedToThePreviousList) {
    DiskList previous{Disk("A", 2)};
    EXPECT_THAT(EventsOf({Disk("A", 2), Disk("B", 5)}, previous),
                ElementsAre(std::pair("600", "B")));
    EXPECT_THAT(previous, ElementsAre(Disk("A", 2), Disk("B", 5)));
}

TEST(DiskChanges, SayThatADiskAppearedOnce) {
    const DiskList current{Disk("A", 2)};
    DiskList previous;
    EXPECT_THAT(EventsOf(current, previous), ElementsAre(std::pair("600", "A")));
    EXPECT_THAT(EventsOf(current, previous), IsEmpty());
}

TEST(DiskChanges, SayThatADiskListedTwiceAppearedOnce) {
    DiskList previous;
    EXPECT_THAT(EventsOf({Disk("A", 2), Disk("A", 2)}, previous),
                ElementsAre(std::pair("600", "A")));
}

TEST(DiskChanges, CompareADiskListedTwiceWithItsFirstPreviousEntry) {
    DiskList previous{Disk("A", 2), Disk("A", 6)};
    EXPECT_THAT(EventsOf({Disk("A", 2), Disk("A", 6)}, previous),
                ElementsAre(std::pair("603", "A")));
}

TEST(DiskChanges, SayThatADiskDisappearedAsItWas) {
    DiskRecord gone = Disk("A", 5);
    gone.model = "The model";
    DiskList previous{gone};
    const auto changes = FindDiskChanges({}, previous);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes.front().eventId, "613");
    EXPECT_EQ(changes.front().disk, gone);
}

TEST(DiskChanges, SayForEachEntryOfADiskThatItDisappeared) {
    DiskList previous{Disk("A", 2), Disk("A", 2)};
    EXPECT_EQ(EventsOf({}, previous).size(), 2U);
}

TEST(DiskChanges, TellDisksApartByTheirDeviceIdsExactly) {
    DiskList previous{Disk("A", 2)};
    EXPECT_THAT(EventsOf({Disk("a", 2)}, previous),
                ElementsAre(std::pair("600", "a"), std::pair("613", "A")));
}

TEST(DiskChanges, FollowTheCurrentListAndThenThePreviousOne) {
    DiskList previous{Disk("Gone2", 2), Disk("A", 2), Disk("Gone1", 2), Disk("B", 2)};
    EXPECT_THAT(EventsOf({Disk("B", 6), Disk("New", 2), Disk("A", 3)}, previous),
                ElementsAre(std::pair("603", "B"), std::pair("600", "New"), std::pair("604", "A"),
                            std::pair("613", "Gone2"), std::pair("613", "Gone1")));
}

// The reference: compares entry by entry, without any shortcut.
Events PlainEvents(const DiskList& current, DiskList& previous) {
    Events events;
    const auto find = [](DiskList& in, const std::string& id) {
        return std::ranges::find(in, id, &DiskRecord::deviceId);
    };
    for (const DiskRecord& disk : current) {
        const auto known = find(previous, disk.deviceId);
        if (known == previous.end()) {
            previous.push_back(disk);
            events.emplace_back("600", disk.deviceId);
            continue;
        }
        const std::string event = AgreedEvent(known->statusCode, disk.statusCode);
        if (!event.empty()) {
            events.emplace_back(event, disk.deviceId);
        }
        const bool own = disk.statusCode == 2 || disk.statusCode == 3 || disk.statusCode == 5 ||
                         disk.statusCode == 6;
        if (!own && known->statusCode == 1) {
            known->statusCode = 0;
        }
    }
    DiskList searched = current;
    for (const DiskRecord& disk : previous) {
        if (find(searched, disk.deviceId) == searched.end()) {
            events.emplace_back("613", disk.deviceId);
        }
    }
    return events;
}

DiskList GeneratedList(std::mt19937& random) {
    DiskList disks;
    for (std::size_t count = random() % 8; count > 0; --count) {
        disks.push_back(Disk(std::to_string(random() % 6), random() % 8));
    }
    return disks;
}

TEST(DiskChanges, AgreeWithThePlainComparisonOnGeneratedLists) {
    std::mt19937 random(1);
    for (int round = 0; round < 5000; ++round) {
        const DiskList current = GeneratedList(random);
        DiskList previous = GeneratedList(random);
        DiskList plainPrevious = previous;
        ASSERT_EQ(EventsOf(current, previous), PlainEvents(current, plainPrevious)) << round;
        ASSERT_EQ(previous, plainPrevious) << round;
    }
}

}  // namespace
}  // namespace qv::test
