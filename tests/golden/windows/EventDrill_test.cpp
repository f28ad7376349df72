// The event provider delivers for the drill what the golden file contains.
#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "tests/golden/GoldenFiles.h"
#include "tests/golden/windows/DrillHost.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;

/// A value that differs by run or machine, and its form.
struct Masked {
    const char* property;
    const char* form;
};

constexpr Masked masked[] = {
    {"IndicationIdentifier", R"("\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\}")"},
    {"IndicationTime", R"("\d{14}\.\d{3}000[+-]\d{3}")"},
    {"EventTime", R"("\d{14}\.\d{3}000-000")"},
    {"OSVersion", R"("\d+\.\d+\.\d+")"},
    {"OSType", R"(\d+)"},
    {"NetworkAddresses", R"(\{("[0-9a-f.:%]+"(, "[0-9a-f.:%]+")*)?\})"},
};

/// Returns the value as the golden file has it.
std::string Written(const PublishedProperty& property) {
    const std::string text = ValueText(property.value);
    const auto* found = std::ranges::find(masked, property.name, &Masked::property);
    if (found == std::end(masked)) {
        return text;
    }
    EXPECT_TRUE(std::regex_match(text, std::regex(found->form))) << property.name << ": " << text;
    return "(masked)";
}

std::string Written(const std::vector<PublishedInstance>& indications) {
    std::string text;
    for (const PublishedInstance& indication : indications) {
        text += "== " + indication.className + "\n\n";
        for (const PublishedProperty& property : indication.properties) {
            text += "  " + property.name + ": " + VariantTypeName(property.variantType) + ' ' +
                    Written(property) + '\n';
        }
        text += '\n';
    }
    return text;
}

TEST(EventDrill, DeliversWhatTheGoldenFileHolds) {
    const std::string delivered = Written(DrillHost(Drill()).RunAll());
    UpdateGolden("event-drill", delivered);
    EXPECT_EQ(FirstDifference(delivered, ReadGolden("event-drill")), "");
}

TEST(EventDrill, RaisesEachEventOnceInTheOrderOfWhatHappens) {
    const std::string old = "SCSI&DISK&VEN_HALDEN&PROD_HD4000F05&4&1C0B7E25&0&010000";
    EXPECT_THAT(
        EventsOf(DrillHost(Drill()).RunAll()),
        ElementsAre("604 " + old, "605 " + old, "603 " + old, "602 " + old, "601 " + old,
                    "613 " + old, "600 SCSI&DISK&VEN_HALDEN&PROD_HD6000G02&4&1C0B7E25&0&010000"));
}

std::set<std::string> DistinctIdentifiers(const std::vector<PublishedInstance>& indications) {
    std::set<std::string> identifiers;
    for (const PublishedInstance& indication : indications) {
        identifiers.insert(TextOf(indication, "IndicationIdentifier"));
    }
    return identifiers;
}

TEST(EventDrill, GivesEachIndicationAnIdentifierOfItsOwn) {
    EXPECT_THAT(DistinctIdentifiers(DrillHost(Drill()).RunAll()), testing::SizeIs(7));
}

}  // namespace
}  // namespace qv::test
