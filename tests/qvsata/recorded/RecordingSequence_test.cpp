#include "qvsata/recorded/RecordingSequence.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using namespace service;

std::vector<std::shared_ptr<const RecordedHost>> Recordings(std::size_t count) {
    std::vector<std::shared_ptr<const RecordedHost>> recordings;
    for (std::size_t number = 0; number < count; ++number) {
        recordings.push_back(std::make_shared<RecordedHost>());
    }
    return recordings;
}

TEST(RecordingSequence, BeginsWithTheFirstRecording) {
    const auto recordings = Recordings(2);
    const RecordingSequence sequence(recordings);
    EXPECT_EQ(sequence.Present(), recordings[0]);
    EXPECT_EQ(sequence.Position(), 0U);
    EXPECT_EQ(sequence.Size(), 2U);
}

TEST(RecordingSequence, StepsFromOneToTheNext) {
    const auto recordings = Recordings(3);
    RecordingSequence sequence(recordings);
    EXPECT_TRUE(sequence.Step());
    EXPECT_EQ(sequence.Present(), recordings[1]);
    EXPECT_TRUE(sequence.Step());
    EXPECT_EQ(sequence.Present(), recordings[2]);
    EXPECT_EQ(sequence.Position(), 2U);
}

TEST(RecordingSequence, StaysAtTheLastRecording) {
    const auto recordings = Recordings(1);
    RecordingSequence sequence(recordings);
    EXPECT_FALSE(sequence.Step());
    EXPECT_EQ(sequence.Present(), recordings[0]);
}

}  // namespace
}  // namespace qv::test
