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
    EXPECT_EQ(
        tool::TimeoutLines(tool::UnreadLines({Query("Win32_PhysicalMedia", SourceEnd::answered),
                                              Query("Win32_DiskDrive", SourceEnd::pending)}),
                           5),
        "qvsata: ended after 5 seconds\n"
        "root\\CIMv2 Win32_DiskDrive: no answer: disks and what belongs to them cannot be "
        "published\n");
}

}  // namespace
}  // namespace qv::test
