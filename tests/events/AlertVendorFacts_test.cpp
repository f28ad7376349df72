#include "events/AlertVendorFacts.h"

#include "tests/events/AlertHost.h"

namespace qv::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

const std::string packagePath = R"(\\SRV\root\QVQ:QV_Package.Tag="1")";
const std::string systemPath = R"(\\SRV\root\QVQ:QV_System.Name="SRV")";
const std::string firmwarePath = R"(\\SRV\root\QVQ:QV_Firmware.InstanceID="1:2.3")";

class AlertVendorFactsTest : public AlertTest {
protected:
    /// Answers an association with one row per pair of ends.
    void Link(const std::string& query,
              const std::vector<std::pair<std::string, std::string>>& ends) {
        std::vector<Properties> rows;
        for (const auto& [antecedent, dependent] : ends) {
            rows.push_back({{"Antecedent", antecedent}, {"Dependent", dependent}});
        }
        host.Answer(query, std::move(rows));
    }

    Texts Copied(Status status) const {
        EXPECT_EQ(status, Status::noError);
        Texts copied;
        for (const PropertyEntry& entry : indication.puts) {
            copied.push_back(entry.name + "=" + entry.value);
        }
        return copied;
    }
};

TEST_F(AlertVendorFactsTest, LetAnAlertThroughThatNobodyElseKnows) {
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutProviderVersion(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutEnclosureLocation(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")), IsEmpty());
}

TEST_F(AlertVendorFactsTest, LetAnAlertThroughForWhichThereAreNoRows) {
    host.Answer(packageLinks, {});
    host.Answer(firmwareLinks, {});
    host.Answer(softwareQuery, {});
    host.Answer(enclosureQuery, {});
    host.Answer(bladeQuery, {});
    host.Answer(metadataQuery, {});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutProviderVersion(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutEnclosureLocation(indication, host)), IsEmpty());
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")), IsEmpty());
}

TEST_F(AlertVendorFactsTest, RepeatTheHostsPackage) {
    Link(packageLinks, {{packagePath, systemPath}});
    host.Answer("SELECT * FROM QV_Package",
                {{{"__RELPATH", std::string(R"(QV_Package.Tag="0")")}, {"Model", "Another"}},
                 {{"__RELPATH", std::string(R"(qv_package.Tag="1")")},
                  {"SerialNumber", "S1"},
                  {"ProductID", "P1"},
                  {"Model", "M1"},
                  {"PlatformGUID", "G1"},
                  {"VirtualSerialNumber", "VS1"},
                  {"VirtualUUID", "VU1"}}});
    EXPECT_THAT(
        Copied(PutSystemIdentity(indication, host)),
        ElementsAre("SystemSerialNumber=S1", "SystemProductID=P1", "SystemModel=M1",
                    "SystemGUID=G1", "SystemVirtualSerialNumber=VS1", "SystemVirtualUUID=VU1"));
}

TEST_F(AlertVendorFactsTest, RepeatTheFirmwaresVersion) {
    Link(firmwareLinks, {{firmwarePath, systemPath}});
    host.Answer("SELECT * FROM QV_Firmware",
                {{{"__RELPATH", std::string(R"(QV_Firmware.InstanceID="1:2.3")")},
                  {"VersionString", "V1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)),
                ElementsAre("SystemFirmwareVersion=V1"));
}

TEST_F(AlertVendorFactsTest, FindTheFirmwareAtTheOtherEndToo) {
    Link(firmwareLinks, {{systemPath, firmwarePath}});
    host.Answer("SELECT * FROM QV_System",
                {{{"__RELPATH", std::string(R"(QV_System.Name="SRV")")}, {"Name", "SRV"}}});
    host.Answer("SELECT * FROM QV_Firmware",
                {{{"__RELPATH", std::string(R"(QV_Firmware.InstanceID="1:2.3")")},
                  {"VersionString", "V1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)),
                ElementsAre("SystemFirmwareVersion=V1"));
}

TEST_F(AlertVendorFactsTest, LeaveUnsetWhatThePackageDoesNotSay) {
    Link(packageLinks, {{packagePath, systemPath}});
    host.Answer("SELECT * FROM QV_Package", {{{"__RELPATH", std::string(R"(QV_Package.Tag="1")")},
                                              {"SerialNumber", std::monostate()},
                                              {"Model", "M1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), ElementsAre("SystemModel=M1"));
}

TEST_F(AlertVendorFactsTest, FindAPackageThroughAReferenceWithoutANamespace) {
    Link(packageLinks, {{R"(QV_Package.Tag="urn:1")", systemPath}});
    host.Answer("SELECT * FROM QV_Package",
                {{{"__RELPATH", std::string(R"(QV_Package.Tag="urn:1")")}, {"Model", "M1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), ElementsAre("SystemModel=M1"));
}

TEST_F(AlertVendorFactsTest, FindAPackageWhoseKeyHasAColonBehindItsNamespace) {
    Link(packageLinks, {{R"(\\SRV\root\QVQ:QV_Package.Tag="urn:1")", systemPath}});
    host.Answer("SELECT * FROM QV_Package",
                {{{"__RELPATH", std::string(R"(QV_Package.Tag="urn:1")")}, {"Model", "M1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), ElementsAre("SystemModel=M1"));
}

TEST_F(AlertVendorFactsTest, PassOverALinkToNothing) {
    Link(packageLinks, {{packagePath, ""}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), IsEmpty());
}

TEST_F(AlertVendorFactsTest, TakeTheFirstPackageOfSeveral) {
    Link(packageLinks,
         {{packagePath, systemPath}, {R"(\\SRV\root\QVQ:QV_Package.Tag="2")", systemPath}});
    host.Answer("SELECT * FROM QV_Package",
                {{{"__RELPATH", std::string(R"(QV_Package.Tag="2")")}, {"Model", "M2"}},
                 {{"__RELPATH", std::string(R"(QV_Package.Tag="1")")}, {"Model", "M1"}}});
    EXPECT_THAT(Copied(PutSystemIdentity(indication, host)), ElementsAre("SystemModel=M1"));
}

Properties SoftwareRow(platform::Value identity, std::int32_t majorNumber) {
    return {{"IdentityInfoValue", std::move(identity)},
            {"MajorVersion", majorNumber},
            {"MinorVersion", 2},
            {"RevisionNumber", 3},
            {"BuildNumber", 4}};
}

TEST_F(AlertVendorFactsTest, RepeatTheVersionOfTheVersionLibrary) {
    host.Answer(softwareQuery,
                {SoftwareRow(Texts{"other.dll"}, 7), SoftwareRow(Texts{"x", "QVWMIVER.DLL"}, 1),
                 SoftwareRow(Texts{"qvwmiver.dll"}, 8)});
    EXPECT_THAT(Copied(PutProviderVersion(indication, host)),
                ElementsAre("ProviderVersion=1.2.3.4"));
}

TEST_F(AlertVendorFactsTest, RepeatTheVersionOfALibraryNamedByATextOfItsOwn) {
    host.Answer(softwareQuery, {SoftwareRow(std::string("qvwmiver.dll"), 1)});
    EXPECT_THAT(Copied(PutProviderVersion(indication, host)),
                ElementsAre("ProviderVersion=1.2.3.4"));
}

TEST_F(AlertVendorFactsTest, LeaveAVersionUnsetOfWhichAPartIsMissing) {
    Properties software = SoftwareRow(Texts{"qvwmiver.dll"}, 1);
    software.erase("RevisionNumber");
    host.Answer(softwareQuery, {software});
    EXPECT_THAT(Copied(PutProviderVersion(indication, host)), IsEmpty());
}

TEST_F(AlertVendorFactsTest, RepeatThePlaceOfABlade) {
    host.Answer(enclosureQuery,
                {{{"Name", "E1"}, {"RackName", "R1"}, {"RackUID", "U1"}}, {{"Name", "E2"}}});
    host.Answer(bladeQuery,
                {{{"Name", "B1"}, {"LocationInformation", "Bay 3"}, {"ImpactedDomain", "D1"}}});
    EXPECT_THAT(Copied(PutEnclosureLocation(indication, host)),
                ElementsAre("EnclosureName=E1", "RackName=R1", "RackUID=U1", "BladeName=B1",
                            "BladeBay=Bay 3", "ImpactedDomain=D1"));
}

TEST_F(AlertVendorFactsTest, RepeatWhatTheCatalogueSaysOfTheEvent) {
    host.Answer(metadataQuery, {{{"Description", "D"},
                                 {"AlertType", 5},
                                 {"OtherAlertType", "OA"},
                                 {"Severity", std::uint16_t{3}},
                                 {"OtherSeverity", "OS"},
                                 {"ProbableCause", 7},
                                 {"ProbableCauseDescription", "PC"},
                                 {"Actions", Texts{"Look", "Act"}},
                                 {"Summary", "S"},
                                 {"EventCategory", 8},
                                 {"OtherEventCategory", "OC"},
                                 {"EventSubCategory", 9},
                                 {"OtherEventSubCategory", "OSC"}}});
    EXPECT_THAT(
        Copied(PutErrorMetadata(indication, host, "QV SATA", "605")),
        ElementsAre("Description=D", "AlertType=5", "OtherAlertType=OA", "PerceivedSeverity=3",
                    "OtherSeverity=OS", "ProbableCause=7", "ProbableCauseDescription=PC",
                    "RecommendedActions=Look*-*Act", "Summary=S", "EventCategory=8",
                    "OtherEventCategory=OC", "EventSubCategory=9", "OtherEventSubCategory=OSC"));
    EXPECT_EQ(indication.Find("PerceivedSeverity").type, PropertyType::int32);
    EXPECT_EQ(indication.Find("RecommendedActions").type, PropertyType::stringArray);
    EXPECT_EQ(indication.Find("Summary").type, PropertyType::string);
}

TEST_F(AlertVendorFactsTest, RecommendAnActionThatIsOneText) {
    host.Answer(metadataQuery, {{{"Actions", "Act"}}});
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")),
                ElementsAre("RecommendedActions=Act"));
    EXPECT_EQ(indication.puts.front().type, PropertyType::stringArray);
}

TEST_F(AlertVendorFactsTest, RepeatATruthValue) {
    host.Answer(metadataQuery, {{{"AlertType", true}, {"ProbableCause", false}}});
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")),
                ElementsAre("AlertType=TRUE", "ProbableCause=FALSE"));
}

TEST_F(AlertVendorFactsTest, LeaveUnsetWhatCannotBeRepeated) {
    host.Answer(metadataQuery, {{{"AlertType", platform::UnreadValue()}, {"Summary", "S"}}});
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")),
                ElementsAre("Summary=S"));
}

TEST_F(AlertVendorFactsTest, TakeTheFirstOfSeveralRows) {
    host.Answer(metadataQuery, {{{"Summary", "S1"}}, {{"Summary", "S2"}}});
    EXPECT_THAT(Copied(PutErrorMetadata(indication, host, "QV SATA", "605")),
                ElementsAre("Summary=S1"));
}

TEST_F(AlertVendorFactsTest, FailWhenTheIndicationRefusesWhatTheyRepeat) {
    host.Answer(metadataQuery, {{{"Severity", 3}, {"Summary", "S"}}});
    host.Answer(enclosureQuery, {{{"Name", "E1"}}});
    host.Answer(softwareQuery, {SoftwareRow(Texts{"qvwmiver.dll"}, 1)});
    indication.refused = "PerceivedSeverity";
    EXPECT_EQ(Fill(), indication.refusal);
    indication.refused = "EnclosureName";
    EXPECT_EQ(Fill(), indication.refusal);
    indication.refused = "ProviderVersion";
    EXPECT_EQ(Fill(), indication.refusal);
}

}  // namespace
}  // namespace qv::test
