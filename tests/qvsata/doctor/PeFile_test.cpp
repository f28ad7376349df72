#include "qvsata/doctor/PeFile.h"

#include <gtest/gtest.h>

#include <string>

namespace qv::test {
namespace {

using doctor::MachineOf;

/// The first bytes of a program for a machine, whose PE header is at byte 64.
std::string Program(const std::string& machine) {
    std::string bytes(64, '\0');
    bytes.replace(0, 2, "MZ");
    bytes[0x3C] = 64;
    return bytes + std::string("PE\0\0", 4) + machine;
}

TEST(PeFile, HasTheMachineOfItsHeader) {
    EXPECT_EQ(MachineOf(Program("\x64\x86")), 0x8664);
    EXPECT_EQ(MachineOf(Program("\x4C\x01")), 0x14C);
}

TEST(PeFile, IsNoneWithoutItsMarks) {
    EXPECT_EQ(MachineOf(""), std::nullopt);
    EXPECT_EQ(MachineOf("MZ"), std::nullopt);
    EXPECT_EQ(MachineOf(Program("\x64\x86").substr(0, 67)), std::nullopt);
    EXPECT_EQ(MachineOf("x" + Program("\x64\x86").substr(1)), std::nullopt);
}

TEST(PeFile, IsNoneIfItsHeaderIsBeyondItsEnd) {
    std::string bytes = Program("\x64\x86");
    bytes[0x3F] = '\x7F';
    EXPECT_EQ(MachineOf(bytes), std::nullopt);
}

}  // namespace
}  // namespace qv::test
