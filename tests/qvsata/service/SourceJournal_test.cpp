#include "qvsata/service/SourceJournal.h"

#include <gmock/gmock.h>

#include "qvsata/cim/Snapshot.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/service/JournaledMachine.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::Field;

constexpr const char* disks = "SELECT * FROM Win32_DiskDrive";

/// A machine with one namespace, which gives one answer.
class AnsweringServices final : public Services {
public:
    explicit AnsweringServices(Answer answer) : answer_(std::move(answer)) {}

    Answer Get(std::string_view) const override { return answer_; }
    Answer Enumerate(std::string_view) const override { return answer_; }
    Answer Query(std::string_view) const override { return answer_; }

private:
    Answer answer_;
};

constexpr const char* entityPath = R"(Win32_PnPEntity.DeviceID="E")";

/// A machine that knows the link from a controller to its device and may not read the device.
class SilentServices final : public Services {
public:
    Answer Get(std::string_view path) const override {
        EXPECT_EQ(path, entityPath);
        return {status::accessDenied, {}, {}};
    }
    Answer Enumerate(std::string_view) const override { return {}; }
    Answer Query(std::string_view wql) const override {
        Answer answer;
        if (wql == R"(REFERENCES OF {C.DeviceID="C"} WHERE ResultClass = Win32_PnPDevice)") {
            answer.objects = {std::make_shared<Snapshot>(std::vector{
                Reference("SameElement", R"(\\SRV01\root\cimv2:)" + std::string(entityPath)),
                Reference("SystemElement", R"(\\SRV01\root\cimv2:C.DeviceID="C")")})};
        }
        return answer;
    }

private:
    static ObjectProperty Reference(const char* name, std::string path) {
        return {name, CimType::reference, false, std::move(path)};
    }
};

class SourceJournalTest : public testing::Test {
protected:
    std::shared_ptr<const Services> Journaled(std::shared_ptr<const Services> services,
                                              MachineKind kind) const {
        return WithJournal(
                   [services = std::move(services)](std::string_view) {
                       return Connection{Status::noError, services};
                   },
                   kind, journal)(R"(root\CIMv2)")
            .services;
    }

    /// Returns how a query ends on a machine that gives this answer.
    SourceQuery Ended(Answer answer, MachineKind kind = MachineKind::live) const {
        Journaled(std::make_shared<const AnsweringServices>(std::move(answer)), kind)->Query(disks);
        return journal->Queries().back();
    }

    /// Returns how the reading of an object by its path ends.
    SourceEnd EndOfGet(Answer answer, MachineKind kind = MachineKind::live) const {
        Journaled(std::make_shared<const AnsweringServices>(std::move(answer)), kind)
            ->Get(entityPath);
        return journal->Queries().back().end;
    }

    SourceQuery Refused(Status status, MachineKind kind) const {
        WithJournal(
            [status](std::string_view) {
                return Connection{status, nullptr};
            },
            kind, journal)(R"(root\wmi)");
        return journal->Queries().back();
    }

    void Note(const char* className, const char* wql, SourceEnd end) const {
        SourceJournal::End(journal->Begin("n", wql, className), Status::noError, 0, end);
    }

    std::shared_ptr<SourceJournal> journal = std::make_shared<SourceJournal>();
};

TEST_F(SourceJournalTest, HoldsAQueryWithItsClassRowsAndStatus) {
    const SourceQuery query = Ended({Status::noError, {}, {nullptr, nullptr}});
    EXPECT_EQ(query.nameSpace, R"(root\CIMv2)");
    EXPECT_EQ(query.className, "Win32_DiskDrive");
    EXPECT_EQ(query.text, disks);
    EXPECT_EQ(query.rows, 2U);
    EXPECT_TRUE(WasRead(query));
}

TEST_F(SourceJournalTest, HoldsAnEnumerationAsAQueryOfItsClass) {
    Journaled(std::make_shared<const AnsweringServices>(Answer{}), MachineKind::live)
        ->Enumerate("Win32_DiskDrive");
    EXPECT_EQ(journal->Queries().back().className, "Win32_DiskDrive");
    EXPECT_EQ(journal->Queries().back().text, disks);
}

TEST_F(SourceJournalTest, HoldsATextThatIsNoQueryWithoutAClass) {
    Journaled(std::make_shared<const AnsweringServices>(Answer{}), MachineKind::live)->Query("x y");
    EXPECT_EQ(journal->Queries().back().className, "");
    EXPECT_EQ(journal->Queries().back().text, "x y");
}

TEST_F(SourceJournalTest, TellsHowAQueryFailed) {
    EXPECT_EQ(Ended({status::accessDenied, {}, {}}).end, SourceEnd::refusedAtSubmission);
    EXPECT_EQ(Ended({status::accessDenied, {}, {nullptr}}).end, SourceEnd::brokenOff);
    EXPECT_EQ(Ended({status::timedOut, {}, {}}).end, SourceEnd::timedOut);
    EXPECT_EQ(Ended({status::invalidClass, {}, {}}).end, SourceEnd::unknownClass);
    EXPECT_EQ(Ended({status::invalidClass, {}, {}}, MachineKind::recorded).end,
              SourceEnd::neverRecorded);
}

TEST_F(SourceJournalTest, TellsHowAConnectionFailed) {
    EXPECT_EQ(Refused(status::invalidNamespace, MachineKind::live).end,
              SourceEnd::refusedAtConnection);
    EXPECT_EQ(Refused(status::invalidNamespace, MachineKind::recorded).end,
              SourceEnd::neverRecorded);
    EXPECT_EQ(Refused(status::accessDenied, MachineKind::recorded).end,
              SourceEnd::refusedAtConnection);
}

TEST_F(SourceJournalTest, HoldsTheReadingOfAnObjectByItsPath) {
    EXPECT_EQ(EndOfGet({status::accessDenied, {}, {}}), SourceEnd::refusedAtSubmission);
    EXPECT_EQ(EndOfGet({Status::notFound, {}, {}}), SourceEnd::answered);
    EXPECT_EQ(EndOfGet({Status::notFound, {}, {}, "Win32_PnPEntity"}), SourceEnd::unknownClass);
    EXPECT_EQ(EndOfGet({Status::notFound, {}, {}, "Win32_PnPEntity"}, MachineKind::recorded),
              SourceEnd::neverRecorded);
    EXPECT_EQ(journal->Queries()[0].className, "Win32_PnPEntity");
    EXPECT_EQ(journal->Queries()[0].text, entityPath);
}

TEST_F(SourceJournalTest, HoldsTheClassToWhichAnAssociationLeadsAsUnread) {
    const Answer answer{status::accessDenied, {}, {}, "Win32_PnPEntity"};
    Journaled(std::make_shared<const AnsweringServices>(answer), MachineKind::recorded)
        ->Query("ASSOCIATORS OF {C='C'} WHERE AssocClass = Win32_PnPDevice");
    const std::vector<SourceQuery> queries = journal->Queries();
    ASSERT_EQ(queries.size(), 2U);
    EXPECT_EQ(queries[0].className, "Win32_PnPDevice");
    EXPECT_TRUE(WasRead(queries[0]));
    EXPECT_EQ(queries[1].className, "Win32_PnPEntity");
    EXPECT_EQ(queries[1].end, SourceEnd::refusedAtSubmission);
}

TEST_F(SourceJournalTest, FindsTheClassThatALiveServiceLeavesOut) {
    Journaled(std::make_shared<const SilentServices>(), MachineKind::live)
        ->Query(R"(ASSOCIATORS OF {C.DeviceID="C"} WHERE AssocClass = Win32_PnPDevice)");
    EXPECT_EQ(journal->Queries().back().className, "Win32_PnPEntity");
    EXPECT_EQ(journal->Queries().back().status, status::accessDenied);
}

TEST_F(SourceJournalTest, HoldsARunningQueryAsPending) {
    journal->Begin("n", disks, "Win32_DiskDrive");
    EXPECT_EQ(journal->Queries()[0].end, SourceEnd::pending);
}

TEST_F(SourceJournalTest, ReturnsTheQueriesAfterTheSkippedOnes) {
    Note("A", "SELECT * FROM A", SourceEnd::answered);
    Note("B", "SELECT * FROM B", SourceEnd::answered);
    EXPECT_EQ(journal->Size(), 2U);
    EXPECT_THAT(journal->Queries(1), ElementsAre(Field(&SourceQuery::className, "B")));
}

TEST_F(SourceJournalTest, KeepsTheFirstOfEachFailureWhenItIsCondensed) {
    Note("A", "SELECT * FROM A", SourceEnd::brokenOff);
    Note("B", "SELECT * FROM B", SourceEnd::answered);
    Note("A", "SELECT Name FROM A", SourceEnd::brokenOff);
    Note("C", "SELECT * FROM C", SourceEnd::answered);
    journal->Condense();
    EXPECT_THAT(journal->Queries(), ElementsAre(Field(&SourceQuery::text, "SELECT * FROM A"),
                                                Field(&SourceQuery::text, "SELECT * FROM C")));
    EXPECT_EQ(journal->Size(), 4U);
}

TEST_F(SourceJournalTest, CountsOnAfterItWasCondensed) {
    Note("A", "SELECT * FROM A", SourceEnd::answered);
    journal->Condense();
    Note("B", "SELECT * FROM B", SourceEnd::answered);
    EXPECT_THAT(journal->Queries(1), ElementsAre(Field(&SourceQuery::className, "B")));
}

}  // namespace
}  // namespace qv::test
