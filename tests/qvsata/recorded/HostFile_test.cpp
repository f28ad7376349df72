#include "qvsata/recorded/HostFile.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

#include "SourceTree.h"
#include "qvsata/cim/StatusCodes.h"
#include "tests/qvsata/wql/RepeatedText.h"
#include "tests/support/RecordedAnswers.h"

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

RecordedHost Loaded(std::string_view json) {
    return ReadHostText(json, "h.json");
}

// Returns a host with one row of one class.
std::string WithRow(const std::string& row) {
    return R"({"computer":{},"namespaces":{"root\\CIMv2":{"Win32_DiskDrive":[{},)" + row + "]}}}";
}

std::string Refusal(std::string_view json) {
    try {
        Loaded(json);
        return {};
    } catch (const HostFileError& error) {
        return error.what();
    }
}

std::string RefusalOfRow(const std::string& row) {
    return Refusal(WithRow(row));
}

std::string RefusalOfFile(const std::filesystem::path& file) {
    try {
        ReadHostFile(file);
        return {};
    } catch (const HostFileError& error) {
        return error.what();
    }
}

std::optional<CimValue> LoadedValue(const std::string& value) {
    const RecordedHost host = Loaded(WithRow("{\"P\":" + value + "}"));
    return ValueOf(*Ask(host, "root/cimv2", "SELECT * FROM Win32_DiskDrive").objects.at(1), "P");
}

// Returns the JSON text in the folder's description of the format.
std::string DescribedHost() {
    std::ifstream file(std::filesystem::path(QV_SOURCE_DIR) / "hosts" / "README.md");
    std::ostringstream text;
    text << file.rdbuf();
    const std::string all = text.str();
    const std::string fence = "```json\n";
    const std::size_t begin = all.find(fence) + fence.size();
    return all.substr(begin, all.find("```", begin) - begin);
}

// A file for one test; the destructor deletes it.
class FileOf {
public:
    FileOf(const std::string& name, std::string_view text)
        : path_(std::filesystem::temp_directory_path() / name) {
        std::ofstream(path_, std::ios::binary) << text;
    }
    ~FileOf() { std::filesystem::remove(path_); }
    FileOf(const FileOf&) = delete;
    FileOf& operator=(const FileOf&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

TEST(HostFile, GivesDescriptionNamesNamespacesAndClasses) {
    const RecordedHost host = Loaded(R"({
        "description": "two words",
        "computer": {"server": "SRV01", "dnsFullyQualified": "srv01.example.org",
                     "dnsHostname": "srv01", "netbios": "NB01"},
        "namespaces": {"root\\wmi": {"B": [], "A": []}, "root/CIMv2": {}}})");
    EXPECT_EQ(host.Description(), "two words");
    EXPECT_EQ(host.Computer().server, "SRV01");
    EXPECT_EQ(host.Computer().dnsFullyQualified, "srv01.example.org");
    EXPECT_EQ(host.Computer().dnsHostname, "srv01");
    EXPECT_EQ(host.Computer().netbios, "NB01");
    EXPECT_THAT(NamesOf(host.Namespaces()), ElementsAre(R"(root\wmi)", R"(root\CIMv2)"));
    EXPECT_THAT(NamesOf(host.FindNamespace(R"(ROOT\WMI)")->Classes()), ElementsAre("B", "A"));
}

TEST(HostFile, TakesTheNetbiosNameOrADotForAMissingServer) {
    EXPECT_EQ(Loaded(R"({"computer":{"netbios":"NB"},"namespaces":{}})").Computer().server, "NB");
    EXPECT_EQ(Loaded(R"({"computer":{"server":null},"namespaces":{}})").Computer().server, ".");
}

TEST(HostFile, KeepsRowsAndPropertiesInOrder) {
    const RecordedHost host =
        Loaded(R"({"computer":{},"namespaces":{"n":{"C":[{"B":1,"A":2,"__X":3},{"Z":null}]}}})");
    const auto answer = Ask(host, "n", "SELECT * FROM C");
    ASSERT_EQ(answer.objects.size(), 2U);
    EXPECT_THAT(answer.objects[0]->Names(), ElementsAre("B", "A"));
    EXPECT_THAT(answer.objects[1]->Names(), ElementsAre("Z"));
}

TEST(HostFile, KeepsClassesInOrderWhateverTheyHold) {
    const RecordedHost host = Loaded(
        R"({"computer":{},"namespaces":{"n":{"A":[],"B":{"fails":true},"C":[{}],"D":[]},"m":{}}})");
    EXPECT_THAT(NamesOf(host.Namespaces()), ElementsAre("n", "m"));
    EXPECT_THAT(NamesOf(host.FindNamespace("n")->Classes()), ElementsAre("A", "B", "C", "D"));
}

TEST(HostFile, TakesMembersInAnyOrder) {
    const RecordedHost host =
        Loaded(R"({"namespaces":{"n":{"C":[{}]}},"computer":{"netbios":"H"},"description":"d"})");
    EXPECT_EQ(host.Description(), "d");
    EXPECT_EQ(host.Computer().server, "H");
    EXPECT_EQ(host.FindNamespace("n")->Find("C")->Rows().size(), 1U);
}

TEST(HostFile, RefusesRowsInWrongPlaces) {
    EXPECT_EQ(RefusalOfRow("[{}]"),
              R"(h.json: namespaces."root\\CIMv2".Win32_DiskDrive[1]: expected an object)");
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"n":[{}]}})"),
              "h.json: namespaces.n: expected an object");
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":[{"n":{"C":[{}]}}]})"),
              "h.json: namespaces: expected an object");
}

TEST(HostFile, GivesEachValueItsType) {
    EXPECT_EQ(LoadedValue("null"), CimValue{});
    EXPECT_EQ(LoadedValue("true"), CimValue{true});
    EXPECT_EQ(LoadedValue("2147483647"), CimValue{std::int64_t{2147483647}});
    EXPECT_EQ(LoadedValue("-2147483648"), CimValue{std::int64_t{-2147483648LL}});
    EXPECT_EQ(LoadedValue(R"("500105249280")"), CimValue{"500105249280"});
    EXPECT_EQ(LoadedValue("\"\xC3\xA9\""), CimValue{"\xC3\xA9"});
    EXPECT_EQ(LoadedValue("[3, 4]"), (CimValue{std::vector<std::int64_t>{3, 4}}));
    EXPECT_EQ(LoadedValue(R"(["a", "b"])"), (CimValue{std::vector<std::string>{"a", "b"}}));
}

TEST(HostFile, TakesAnEmptyArrayForOneOfNumbers) {
    EXPECT_EQ(LoadedValue("[]"), CimValue{std::vector<std::int64_t>{}});
}

TEST(HostFile, AcceptsAByteOrderMark) {
    EXPECT_THAT(Loaded("\xEF\xBB\xBF{\"computer\":{},\"namespaces\":{}}").Namespaces(), IsEmpty());
}

TEST(HostFile, MakesAFailingClassFail) {
    const RecordedHost host = Loaded(R"({"computer":{},"namespaces":{"n":{"C":{"fails":true}}}})");
    EXPECT_EQ(Ask(host, "n", "SELECT * FROM C").status, Status::failed);
}

TEST(HostFile, RefusesWhatIsNotJsonAndSaysWhere) {
    EXPECT_THAT(Refusal(""), StartsWith("h.json: line 1, column 1: not JSON: "));
    EXPECT_THAT(Refusal("{\n \"computer\": {},\n  oops\n}"),
                StartsWith("h.json: line 3, column 3: not JSON: "));
    EXPECT_THAT(Refusal("{} {}"), StartsWith("h.json: line 1, column 4: not JSON: "));
    EXPECT_THAT(Refusal("{\"a\":\n\"\x01\n\"}"),
                StartsWith("h.json: line 2, column 2: not JSON: "));
    EXPECT_EQ(Refusal("{\"a\":\n 1e999}"), "h.json: line 2, column 6: a number beyond all bounds");
}

TEST(HostFile, IsNotEndedByANulCharacter) {
    const std::string json = R"({"computer":{},"namespaces":{}})";
    EXPECT_EQ(Refusal(json + '\n' + '\0' + " not JSON {{{"),
              "h.json: line 2, column 1: not JSON: a NUL character");
    EXPECT_EQ(Refusal(json + '\0'), "h.json: line 1, column 32: not JSON: a NUL character");
    EXPECT_THAT(Refusal(std::string("{\"a\":\0 1}", 9)),
                StartsWith("h.json: line 1, column 6: not JSON: "));
}

TEST(HostFile, RefusesBytesThatAreNotUtf8) {
    const std::string message = Refusal("{\"a\": \"x\xFF\"}");
    EXPECT_THAT(message, StartsWith("h.json: line 1, column 9: not JSON: "));
    EXPECT_THAT(message, HasSubstr("UTF-8"));
}

TEST(HostFile, SaysItInOneLine) {
    EXPECT_THAT(Refusal("{\n\"a\n\"}"), testing::Not(HasSubstr("\n")));
    EXPECT_THAT(RefusalOfRow(R"({"a\nb": 1.5})"), testing::Not(HasSubstr("\n")));
}

TEST(HostFile, RefusesAFileOfAnotherShape) {
    EXPECT_EQ(Refusal("[]"), "h.json: expected an object");
    EXPECT_EQ(Refusal("{}"), "h.json: computer: missing");
    EXPECT_EQ(Refusal(R"({"computer":{}})"), "h.json: namespaces: missing");
    EXPECT_EQ(Refusal(R"({"computer":"PC","namespaces":{}})"),
              "h.json: computer: expected an object");
    EXPECT_EQ(Refusal(R"({"computer":{"netbios":1},"namespaces":{}})"),
              "h.json: computer.netbios: expected a text");
    EXPECT_EQ(Refusal(R"({"description":[],"computer":{},"namespaces":{}})"),
              "h.json: description: expected a text");
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":[]})"),
              "h.json: namespaces: expected an object");
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"root\\wmi":[]}})"),
              R"(h.json: namespaces."root\\wmi": expected an object)");
}

TEST(HostFile, RefusesANameThatNoComputerHas) {
    const std::string longest(255, 'n');
    EXPECT_EQ(Loaded(R"({"computer":{"netbios":")" + longest + R"("},"namespaces":{}})")
                  .Computer()
                  .netbios,
              longest);
    const auto refusal = [&longest](const std::string& name) {
        return Refusal(R"({"computer":{")" + name + "\":\"" + longest + R"(n"},"namespaces":{}})");
    };
    const std::string reason = ": a name of more than 255 characters";
    EXPECT_EQ(refusal("server"), "h.json: computer.server" + reason);
    EXPECT_EQ(refusal("netbios"), "h.json: computer.netbios" + reason);
    EXPECT_EQ(refusal("dnsHostname"), "h.json: computer.dnsHostname" + reason);
    EXPECT_EQ(refusal("dnsFullyQualified"), "h.json: computer.dnsFullyQualified" + reason);
}

TEST(HostFile, CountsTheCharactersOfANameAndNotItsBytes) {
    EXPECT_EQ(
        Refusal(R"({"computer":{"netbios":")" + RepeatedText(255, "ö") + R"("},"namespaces":{}})"),
        "");
}

TEST(HostFile, KnowsTheStatusWithWhichAClassFails) {
    const RecordedHost host =
        Loaded(R"({"computer":{},"namespaces":{"n":{"C":{"fails":"WBEM_E_ACCESS_DENIED"}}}})");
    EXPECT_EQ(host.FindNamespace("n")->Find("C")->Failure(), status::accessDenied);
}

class HostFileFailureTest : public testing::TestWithParam<const char*> {};

TEST_P(HostFileFailureTest, IsRefusedUnlessItIsAStatus) {
    EXPECT_EQ(Refusal(std::string(R"({"computer":{},"namespaces":{"n":{"C":{"fails":)") +
                      GetParam() + "}}}}"),
              "h.json: namespaces.n.C.fails: expected true or the name of a status like "
              "\"WBEM_E_ACCESS_DENIED\", or its number");
}

INSTANTIATE_TEST_SUITE_P(Values, HostFileFailureTest,
                         testing::Values("false", "null", "5", R"("denied")", "[]", R"("0x8004")",
                                         R"("0x00000000")", R"("0x8004100Z")"));

TEST(HostFile, KnowsAFailureByNumber) {
    const RecordedHost host =
        Loaded(R"({"computer":{},"namespaces":{"n":{"C":{"fails":"0x80070002"}}}})");
    EXPECT_EQ(host.FindNamespace("n")->Find("C")->Failure(), Status{0x80070002});
}

TEST(HostFile, KnowsTheRecordedSystem) {
    EXPECT_EQ(Loaded(R"({"computer":{},"namespaces":{},
                         "system":{"osVersion":"10.0.19045","codePage":1252}})")
                  .System(),
              (RecordedSystem{"10.0.19045", 1252}));
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{},"system":{"codePage":"1252"}})"),
              "h.json: system.codePage: expected the number of a code page");
}

TEST(HostFile, RefusesARowListThatIsNone) {
    const std::string expected =
        R"(h.json: namespaces.n.C: expected a list of rows or {"fails": true})";
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"n":{"C":{}}}})"), expected);
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"n":{"C":true}}})"), expected);
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"n":{"C":{"fails":true,"a":1}}}})"),
              expected);
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"n":{"C":[3]}}})"),
              "h.json: namespaces.n.C[0]: expected an object");
}

TEST(HostFile, RefusesAValueThatNoPropertyHas) {
    const std::string row = R"(h.json: namespaces."root\\CIMv2".Win32_DiskDrive[1])";
    EXPECT_EQ(RefusalOfRow(R"({"Index":1.5})"), row + ".Index: a number with a fraction");
    EXPECT_EQ(RefusalOfRow(R"({"Size":2147483648})"),
              row + ".Size: a number beyond 32 bits; 64-bit numbers are written as text");
    EXPECT_EQ(RefusalOfRow(R"({"Size":-2147483649})"),
              row + ".Size: a number beyond 32 bits; 64-bit numbers are written as text");
    EXPECT_EQ(RefusalOfRow(R"({"Size":500105249280000000000})"),
              row + ".Size: a number beyond 32 bits; 64-bit numbers are written as text");
    EXPECT_EQ(RefusalOfRow(R"({"Size":{"n":1}})"),
              row + ".Size: an object is no value of a property");
    EXPECT_EQ(RefusalOfRow(R"({"Caps":[3,"4"]})"),
              row + ".Caps[1]: an array of both numbers and texts");
    EXPECT_EQ(RefusalOfRow(R"({"Caps":[true]})"),
              row + ".Caps[0]: an array holds numbers or texts");
    EXPECT_EQ(RefusalOfRow(R"({"Caps":[3,[4]]})"),
              row + ".Caps[1]: an array holds numbers or texts");
    EXPECT_EQ(RefusalOfRow(R"({"Caps":[3,4.5]})"), row + ".Caps[1]: a number with a fraction");
    EXPECT_EQ(RefusalOfRow(R"({"a b":1.5})"), row + R"(."a b": a number with a fraction)");
}

TEST(HostFile, RefusesANameGivenTwiceInAnyLetterCase) {
    EXPECT_EQ(RefusalOfRow("\n{\"Size\":\"1\",\"Size\":\"2\"}"),
              R"(h.json: line 2, column 18: "Size" stands twice in one object)");
    EXPECT_EQ(RefusalOfRow("\n{\"Size\":\"1\",\n\"SIZE\":\"2\"}"),
              R"(h.json: line 3, column 6: "SIZE" stands twice in one object)");
    EXPECT_EQ(Refusal(R"({"computer":{},"namespaces":{"root\\wmi":{},"root/WMI":{}}})"),
              R"(h.json: namespaces."root/WMI": the namespace is given twice)");
}

TEST(HostFile, TakesTheExampleOfItsDescription) {
    const RecordedHost host = Loaded(DescribedHost());
    EXPECT_EQ(host.Computer().server, "DEN");
    const auto disks = Ask(host, "root/cimv2", "SELECT * FROM Win32_DiskDrive");
    ASSERT_EQ(disks.objects.size(), 1U);
    EXPECT_EQ(ValueOf(*disks.objects[0], "__PATH"),
              CimValue{R"(\\DEN\root\cimv2:Win32_DiskDrive.DeviceID="\\\\.\\PHYSICALDRIVE0")"});
    EXPECT_EQ(ValueOf(*disks.objects[0], "InstallDate"), CimValue{});
    EXPECT_EQ(ValueOf(*disks.objects[0], "SerialNumber"), std::nullopt);
    const auto controllers = Ask(host, "root/cimv2",
                                 R"(ASSOCIATORS OF {Win32_PnPEntity.DeviceID="IDE\\DISKX\\5&1"} )"
                                 "WHERE AssocClass = Win32_IDEControllerDevice");
    ASSERT_EQ(controllers.objects.size(), 1U);
    EXPECT_EQ(ValueOf(*controllers.objects[0], "DeviceID"), CimValue{R"(PCIIDE\IDECHANNEL\4&1&0)"});
    EXPECT_EQ(Ask(host, "root/wmi", "SELECT * FROM MSStorageDriver_FailurePredictStatus").status,
              Status::failed);
}

TEST(HostFile, LoadsAFile) {
    const FileOf file("qv_host_test.json", R"({"computer":{"netbios":"NB"},"namespaces":{}})");
    EXPECT_EQ(ReadHostFile(file.Path()).Computer().netbios, "NB");
}

TEST(HostFile, NamesTheFileInMessages) {
    const FileOf file("qv_host_bad.json", "{}");
    EXPECT_THAT(RefusalOfFile(file.Path()), HasSubstr("qv_host_bad.json: computer: missing"));
}

TEST(HostFile, RefusesAMissingFileAndADirectory) {
    EXPECT_EQ(RefusalOfFile("no-such-host.json"), "no-such-host.json: there is no such file");
    EXPECT_THAT(RefusalOfFile(std::filesystem::temp_directory_path()),
                HasSubstr(": a directory, not a file"));
}

}  // namespace
}  // namespace qv::test
