#include "qvsata/capture/Redaction.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <regex>

#include "qvsata/recorded/HostFile.h"
#include "qvsata/recorded/HostText.h"
#include "source/Text.h"

namespace qv::test {
namespace {

using namespace capture;
using service::RecordedHost;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// GoogleTest's own regular expressions have no sets of characters on Windows.
MATCHER_P(HasForm, pattern, "") {
    return std::regex_match(arg, std::regex(pattern));
}

/// A computer with one class of rows, each given in JSON.
RecordedHost HostWith(const std::string& rows, const std::string& name = "HALL-NAS7") {
    return service::ReadHostText(
        R"({"computer": {"netbios": ")" + name + R"(", "dnsFullyQualified": ")" + name +
            R"(.corp.example"}, "namespaces": {"root\\CIMv2": {"C": [)" + rows + "]}}}",
        "h");
}

std::string TextAfter(const RecordedHost& host) {
    return service::HostAsText(Redaction(host, RedactionKey("a key"), 1).Applied(host));
}

/// Returns a text of the first row after the redaction.
std::string After(const std::string& rows, const std::string& property, std::size_t row = 0) {
    const RecordedHost host = HostWith(rows);
    const RecordedHost after = Redaction(host, RedactionKey("a key"), 1).Applied(host);
    return std::get<std::string>(
        *after.FindNamespace("root/cimv2")->Find("C")->Rows()[row].FindProperty(property));
}

TEST(Redaction, KeepsLengthLettersDigitsAndSigns) {
    EXPECT_THAT(After(R"({"SerialNumber": "  WX-41a60T99  "})", "SerialNumber"),
                AllOf(HasForm("  [A-Z][A-Z]-[0-9][0-9][a-z][0-9][0-9][A-Z][0-9][0-9]  "),
                      Not(HasSubstr("WX-41a60T99"))));
}

TEST(Redaction, ReplacesTheSameTextEverywhereInTheSameWay) {
    const std::string rows =
        R"({"SerialNumber": "WX41A60T99"}, {"PNPDeviceID": "USBSTOR\\DISK&PROD\\wx41a60t99&0"})";
    const std::string serial = After(rows, "SerialNumber");
    EXPECT_EQ(FoldCase(After(rows, "PNPDeviceID", 1)),
              "usbstor\\disk&prod\\" + FoldCase(serial) + "&0");
}

TEST(Redaction, KeepsATextThatIsPartOfAnotherAPart) {
    const std::string rows = R"({"SerialNumber": "WX41A60T9921"}, {"SerialNumber": "WX41A60T"})";
    EXPECT_EQ(After(rows, "SerialNumber", 0).substr(0, 8), After(rows, "SerialNumber", 1));
}

TEST(Redaction, DecodesToTheReplacementOfThePlainSerialNumber) {
    // The codes of "  1WXA4016T299  ": the serial number between two spaces, its pairs swapped.
    const std::string rows =
        R"({"SerialNumber": "W1AX04612T99"}, {"SerialNumber": "20203157584134303136543239392020"})";
    const std::string plain = After(rows, "SerialNumber", 0);
    const std::string encoded = After(rows, "SerialNumber", 1);
    EXPECT_EQ(encoded.substr(0, 4), "2020");
    EXPECT_EQ(encoded.substr(28), "2020");
    EXPECT_EQ(std::stoi(encoded.substr(6, 2), nullptr, 16), plain[0]);
    EXPECT_EQ(std::stoi(encoded.substr(4, 2), nullptr, 16), plain[1]);
    EXPECT_EQ(std::stoi(encoded.substr(26, 2), nullptr, 16), plain[10]);
}

TEST(Redaction, ReplacesTheServerOfAReference) {
    EXPECT_THAT(After(R"({"A": "\\\\HALL-NAS7\\root\\cimv2:Win32_X.DeviceID=\"a\""})", "A"),
                HasForm(R"(\\\\[A-Z]{4}-[A-Z]{3}[0-9]\\root\\cimv2:Win32_X.DeviceID="a")"));
}

TEST(Redaction, KeepsAModelThatHasTheNameOfTheComputer) {
    const RecordedHost host = HostWith(
        R"({"Model": "HALDEN HD1", "SystemName": "HALDEN", "A": "\\\\HALDEN\\root:X.K=1"})",
        "HALDEN");
    EXPECT_THAT(
        TextAfter(host),
        AllOf(HasSubstr(R"("Model":"HALDEN HD1")"), Not(HasSubstr(R"("SystemName":"HALDEN")")),
              Not(HasSubstr(R"("A":"\\\\HALDEN)")), Not(HasSubstr(R"("netbios":"HALDEN")")),
              Not(HasSubstr("HALDEN.corp"))));
}

TEST(Redaction, KeepsWhatTheSystemMadeOfADeviceId) {
    const std::string id = R"(SCSI\DISK&VEN_X\4&35E81D6C&0&020000)";
    EXPECT_EQ(After(R"({"PNPDeviceID": "SCSI\\DISK&VEN_X\\4&35E81D6C&0&020000"})", "PNPDeviceID"),
              id);
}

struct Hidden {
    const char* name;
    const char* row;
    const char* secret;
};

class EachSecret : public testing::TestWithParam<Hidden> {};

TEST_P(EachSecret, IsNowhere) {
    EXPECT_THAT(FoldCase(TextAfter(HostWith(GetParam().row))), Not(HasSubstr(GetParam().secret)));
}

INSTANTIATE_TEST_SUITE_P(
    Redaction, EachSecret,
    testing::Values(
        Hidden{"Computer", R"({"A": "on hall-nas7 here"})", "hall-nas7"},
        Hidden{"Domain", R"({"A": "srv.corp.example"})", "corp.example"},
        Hidden{"ShortName", R"({"SystemName": "DEN"}, {"A": "of den, too"})", "den"},
        Hidden{"User", R"({"A": "C:\\Users\\jane.miller\\x"}, {"B": "Jane.Miller"})",
               "jane.miller"},
        Hidden{"Account", R"({"UserName": "HALL\\jmiller7"})", "jmiller7"},
        Hidden{"Sid", R"({"A": "S-1-5-21-1004336348-1177238915"})", "1004336348"},
        Hidden{"Volume", R"({"A": "\\\\?\\Volume{4c1b02c1-d990-11dc}\\"})", "4c1b02c1"},
        Hidden{"Label", R"({"VolumeName": "Payroll 2024"}, {"A": "on PAYROLL 2024"})",
               "payroll 2024"},
        Hidden{"Mac", R"({"A": "00:1A:2B:3C:4D:5E"}, {"B": "001a2b3c4d5e"})", "1a2b3c4d5e"},
        Hidden{"MacWithDashes", R"({"A": "00:1A:2B:3C:4D:5E"}, {"B": "00-1a-2b-3c-4d-5e"})",
               "1a-2b"},
        Hidden{"Address", R"({"IPAddress": ["192.168.7.31"]})", "192.168.7.31"},
        Hidden{"InstanceName", R"({"InstanceName": "USBSTOR\\D\\AA11BB22CC_0"})", "aa11bb22cc"},
        Hidden{"HexOfSerial", R"({"SerialNumber": "ABC123"}, {"A": "x414243313233y"})",
               "414243313233"},
        Hidden{"SwappedSerial", R"({"SerialNumber": "ABC123"}, {"A": "BA1C32"})", "ba1c32"},
        Hidden{"SerialInAReference", R"({"SerialNumber": "ABC\\123"}, {"A": "\"ABC\\\\123\""})",
               "123"},
        Hidden{"NumericSerial", R"({"SerialNumber": 99218841}, {"A": "of 99218841"})", "99218841"},
        Hidden{"NumericSerials", R"({"UniqueId": [99218841, 5]})", "99218841"},
        Hidden{"BareSerial", R"({"SerialNumber": "HD-WX41A60T"}, {"A": "of HDWX41A60T"})",
               "hdwx41a60t"},
        Hidden{"VolumeWithHyphen", R"({"VolumeSerialNumber": "1A2B3C4D"}, {"A": "1a2b-3c4d"})",
               "1a2b-3c4d"},
        Hidden{"MacWithDots", R"({"A": "00:1A:2B:3C:4D:5E"}, {"B": "001a.2b3c.4d5e"})",
               "001a.2b3c"},
        Hidden{"SerialOfAMac", R"({"SerialNumber": "001A2B3C4D5E"}, {"A": "00:1a:2b:3c:4d:5e"})",
               "1a:2b"},
        Hidden{"ShortSerial", R"({"SerialNumber": "X7"})", R"("x7")"}),
    [](const auto& secret) { return secret.param.name; });

TEST(Redaction, HasDifferentReplacementsForDifferentTexts) {
    EXPECT_TRUE(Redaction(HostWith(R"({"SerialNumber": "AAAA11"}, {"SerialNumber": "BBBB22"})"),
                          RedactionKey("a key"), 1)
                    .IsDistinct());
}

TEST(Redaction, HasTheSameReplacementOfATextInEachRecordingWithTheSameKey) {
    const std::string row = R"({"SerialNumber": "WX41A60T99"})";
    EXPECT_EQ(After(row + R"(, {"SerialNumber": "A1"}, {"VolumeName": "Payroll"})", "SerialNumber"),
              After(row, "SerialNumber"));
    EXPECT_NE(After(R"({"SerialNumber": "WX41A60T98"})", "SerialNumber"),
              After(row, "SerialNumber"));
}

TEST(Redaction, ReplacesANumberAsItsText) {
    const RecordedHost host = HostWith(R"({"SerialNumber": 99218841}, {"A": "of 99218841"})");
    const RecordedHost after = Redaction(host, RedactionKey("a key"), 1).Applied(host);
    const auto& rows = after.FindNamespace("root/cimv2")->Find("C")->Rows();
    EXPECT_EQ("of " + std::to_string(std::get<std::int64_t>(*rows[0].FindProperty("SerialNumber"))),
              std::get<std::string>(*rows[1].FindProperty("A")));
}

TEST(Redaction, ReplacesTheLeastNumberAsItsTextWithin32Bits) {
    const RecordedHost host = HostWith(R"({"SerialNumber": -2147483648}, {"A": "of 2147483648"})");
    const RecordedHost after = Redaction(host, RedactionKey("a key"), 1).Applied(host);
    const auto& rows = after.FindNamespace("root/cimv2")->Find("C")->Rows();
    const auto number = std::get<std::int64_t>(*rows[0].FindProperty("SerialNumber"));
    EXPECT_GT(number, std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ("of " + std::to_string(-number), std::get<std::string>(*rows[1].FindProperty("A")));
}

TEST(Redaction, HasReplacementsForAllShortTexts) {
    EXPECT_TRUE(Redaction(HostWith(R"({"IPAddress": ["0", "1", "2", "3", "4", "5", "6"]})"),
                          RedactionKey("a key"), 1)
                    .IsDistinct());
}

}  // namespace
}  // namespace qv::test
