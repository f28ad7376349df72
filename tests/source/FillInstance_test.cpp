#include "source/FillInstance.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An instance that records its puts and lacks one property.
class TargetStandIn : public PropertyTarget {
public:
    Status Put(const PropertyEntry& property) override {
        asked.push_back(property.name);
        return property.name == "Missing" ? Status::notFound : Status::noError;
    }
    Status PutWideText(std::string_view, std::wstring_view) override { return Status::failed; }

    std::vector<std::string> asked;
};

class FillInstanceTest : public ::testing::Test {
protected:
    InstanceRecord record{"C"};
    TargetStandIn instance;
};

TEST_F(FillInstanceTest, IsPutEachEntryInItsOrder) {
    SetProperty(record, "Z", "1");
    SetKeyProperty(record, "A", "2");
    SetProperty(record, "Z", "3");
    EXPECT_EQ(FillInstance(instance, record), Status::noError);
    EXPECT_THAT(instance.asked, ElementsAre("Z", "A", "Z"));
}

TEST_F(FillInstanceTest, LacksWhatItRefuses) {
    SetProperty(record, "Missing", "1");
    SetProperty(record, "B", "2");
    EXPECT_EQ(FillInstance(instance, record), Status::noError);
    EXPECT_THAT(instance.asked, ElementsAre("Missing", "B"));
}

TEST_F(FillInstanceTest, IsNoneForARecordWithoutProperties) {
    EXPECT_EQ(FillInstance(instance, record), Status::failed);
    EXPECT_THAT(instance.asked, IsEmpty());
}

}  // namespace
}  // namespace qv::test
