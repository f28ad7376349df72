#include "qvsata/capture/MapTexts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "qvsata/recorded/HostFile.h"

namespace qv::test {
namespace {

using service::RecordedHost;

/// Returns the serial number -5 after its digits became `digits`.
std::int64_t NumberOf(const std::string& digits) {
    const RecordedHost host = service::ReadHostText(
        R"({"computer": {}, "namespaces": {"n": {"C": [{"SerialNumber": -5}]}}})", "h");
    const RecordedHost mapped =
        capture::MapTexts(host, host, [&digits](auto, const auto&) { return digits; });
    return std::get<std::int64_t>(
        *mapped.FindNamespace("n")->Find("C")->Rows()[0].FindProperty("SerialNumber"));
}

TEST(MapTexts, KeepsTheSignOfANumber) {
    EXPECT_EQ(NumberOf("7"), -7);
}

TEST(MapTexts, MakesANumberWithoutDigitsZero) {
    EXPECT_EQ(NumberOf(""), 0);
}

TEST(MapTexts, RefusesDigitsThatBecomeAnotherText) {
    EXPECT_THROW(NumberOf("x"), std::logic_error);
    EXPECT_THROW(NumberOf("7x"), std::logic_error);
}

}  // namespace
}  // namespace qv::test
