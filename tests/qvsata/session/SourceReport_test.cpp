#include "qvsata/session/SourceReport.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using service::SourceEnd;
using service::SourceQuery;

SourceQuery Query(const char* className, SourceEnd end) {
    return {R"(root\CIMv2)", className, "SELECT", 0, {}, Status::noError, end};
}

TEST(SourceReport, OfATimeoutNamesTheSourcesThatHaveNotAnswered) {
    const tool::Failure timeout =
        tool::TimeoutFailure(tool::UnreadLines({Query("Win32_PhysicalMedia", SourceEnd::answered),
                                                Query("Win32_DiskDrive", SourceEnd::pending)}),
                             5);
    EXPECT_EQ(timeout.reason, "ended after 5 seconds");
    EXPECT_EQ(timeout.details,
              "root\\CIMv2 Win32_DiskDrive: no answer: disks and what belongs to them cannot be "
              "published\n");
    EXPECT_EQ(timeout.exitCode, 3);
}

}  // namespace
}  // namespace qv::test
