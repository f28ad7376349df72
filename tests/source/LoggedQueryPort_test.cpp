#include "source/LoggedQueryPort.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "tests/support/ScriptedHost.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr const char* disks = "SELECT * FROM Win32_DiskDrive";

class LoggedQueryPortTest : public ::testing::Test {
protected:
    ScriptedHost host;
    LoggedQueryPort queries{host, host};
    platform::Rows rows{nullptr};
};

TEST_F(LoggedQueryPortTest, LeavesALineAboutAQueryThatFailed) {
    EXPECT_EQ(queries.RunWqlQuery("root\\CIMv2", disks, rows), Status::failed);
    EXPECT_THAT(rows, IsEmpty());
    EXPECT_THAT(host.log, ElementsAre(Pair(2,
                                           "LoggedQueryPort::RunWqlQuery| failed in "
                                           "root\\CIMv2: SELECT * FROM Win32_DiskDrive")));
}

TEST_F(LoggedQueryPortTest, LeavesNoLineAboveLevelThree) {
    host.level = 4;
    EXPECT_EQ(queries.RunWqlQuery("root\\CIMv2", disks, rows), Status::failed);
    EXPECT_THAT(host.log, IsEmpty());
}

TEST_F(LoggedQueryPortTest, HandsOnWhyAQueryFailed) {
    constexpr auto invalidClass = static_cast<Status>(0x80041010);
    host.Fail(disks, invalidClass);
    EXPECT_EQ(queries.RunWqlQuery("root\\CIMv2", disks, rows), invalidClass);
}

/// A log that runs out of memory at each line.
class ExhaustedLog : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::debug; }
    void Write(LogLevel, std::string_view) override { throw std::bad_alloc(); }
};

TEST_F(LoggedQueryPortTest, ReportsAQueryThatFailedThoughThereIsNoMemoryForItsLine) {
    ExhaustedLog log;
    host.Fail(disks, Status::outOfMemory);
    EXPECT_EQ(LoggedQueryPort(host, log).RunWqlQuery("root\\CIMv2", disks, rows),
              Status::outOfMemory);
}

TEST_F(LoggedQueryPortTest, HandsOnWhatAQueryReturnedWithoutALine) {
    host.Answer(disks, {{{"Model", "A"}}, {{"Model", "B"}}});
    EXPECT_EQ(queries.RunWqlQuery("root\\CIMv2", disks, rows), Status::noError);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(std::get<std::string>(rows[1]->Get("Model").value), "B");
    EXPECT_THAT(host.asked, ElementsAre("root\\CIMv2: SELECT * FROM Win32_DiskDrive"));
    EXPECT_THAT(host.log, IsEmpty());
}

TEST_F(LoggedQueryPortTest, LeavesNoLineAboutAQueryWithoutRows) {
    host.Answer(disks, {});
    EXPECT_EQ(queries.RunWqlQuery("root\\CIMv2", disks, rows), Status::noError);
    EXPECT_THAT(rows, IsEmpty());
    EXPECT_THAT(host.log, IsEmpty());
}

}  // namespace
}  // namespace qv::test
