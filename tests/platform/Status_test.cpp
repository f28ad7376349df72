#include "platform/Status.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

TEST(Status, CodesAreThoseOfTheManagementServiceAndOfCom) {
    EXPECT_EQ(static_cast<std::uint32_t>(Status::noError), 0U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::failed), 0x80041001U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::notFound), 0x80041002U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::invalidCimType), 0x8004102DU);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::unspecifiedFailure), 0x80004005U);
    EXPECT_EQ(static_cast<std::uint32_t>(Status::outOfMemory), 0x8007000EU);
}

TEST(Status, SucceededIsFalseExactlyForCodesWithTheTopmostBit) {
    EXPECT_TRUE(Succeeded(Status::noError));
    EXPECT_TRUE(Succeeded(static_cast<Status>(0x40004)));
    EXPECT_TRUE(Succeeded(static_cast<Status>(0x7FFFFFFF)));
    EXPECT_FALSE(Succeeded(static_cast<Status>(0x80000000)));
    EXPECT_FALSE(Succeeded(Status::failed));
    EXPECT_FALSE(Succeeded(Status::unspecifiedFailure));
}

TEST(Status, RequestErrorCarriesTheStatusThatEndsTheRequest) {
    EXPECT_EQ(RequestError(Status::outOfMemory).status(), Status::outOfMemory);
}

}  // namespace
}  // namespace qv::test
