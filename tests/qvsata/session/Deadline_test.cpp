#include "qvsata/session/Deadline.h"

#include <gtest/gtest.h>

#include <future>

namespace qv::test {
namespace {

TEST(Deadline, CallsWhenTheTimeIsOver) {
    std::promise<void> called;
    const tool::Deadline deadline(std::chrono::milliseconds(1), [&] { called.set_value(); });
    called.get_future().wait();
}

TEST(Deadline, DoesNotCallWhenItIsCancelled) {
    bool isCalled = false;
    {
        const tool::Deadline deadline(std::chrono::hours(1), [&] { isCalled = true; });
    }
    EXPECT_FALSE(isCalled);
}

}  // namespace
}  // namespace qv::test
