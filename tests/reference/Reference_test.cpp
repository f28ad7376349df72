// docs/REFERENCE.md is what the class definitions, the provider's tables and docs/reference/ say,
// and describes what is published.
#include "tests/reference/Reference.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <set>

#include "SourceTree.h"
#include "catalogue/Classes.h"
#include "tests/golden/GoldenFiles.h"
#include "tests/qvsata/mof/ShippedFiles.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/RecordedProvider.h"

namespace qv::test {
namespace {

const std::string documents = QV_SOURCE_DIR "/docs/";

std::string ReadDocument(const std::string& name) {
    std::ifstream file(documents + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::vector<ClassNote>& Notes() {
    static const std::vector<ClassNote> notes = ReadNotes(ReadDocument("reference/properties.txt"));
    return notes;
}

std::string Written() {
    return ReadDocument("reference/introduction.md") + ReferenceText(Notes(), ShippedRepository());
}

using PropertiesByClass = std::map<std::string, std::set<std::string>>;

/// Returns the properties that the notes describe, without the indication's.
PropertiesByClass Described() {
    PropertiesByClass described;
    for (const ClassNote& note : Notes()) {
        const auto names = DescribedProperties(Notes(), note.className);
        described[note.className].insert(names.begin(), names.end());
    }
    described.erase("QV_SATADeviceIndication");
    return described;
}

/// Adds what a recorded host publishes, without references.
void AddPublished(const std::filesystem::path& host, PropertiesByClass& published) {
    const RecordedProvider provider(service::ReadHostFile(host));
    for (const PublishedClass& one : PublishedClasses()) {
        for (const InstanceRecord& record : provider.All(one.name)) {
            for (const PropertyEntry& property : record.properties) {
                if (property.type != PropertyType::reference) {
                    published[std::string(one.name)].insert(property.name);
                }
            }
        }
    }
}

/// Returns what the recorded hosts publish, without references.
PropertiesByClass Published() {
    PropertiesByClass published;
    for (const std::filesystem::path& host : ShippedHosts()) {
        AddPublished(host, published);
    }
    return published;
}

std::vector<std::string> IndicatedNames() {
    std::vector<std::string> names;
    for (const ExpectedEventProperty& property : ExpectedEventProperties()) {
        names.push_back(property.name);
    }
    return names;
}

/// Writes the document if the process runs with QV_UPDATE_REFERENCE=1 in its environment.
void UpdateDocument() {
    const char* const update = std::getenv("QV_UPDATE_REFERENCE");
    if (update != nullptr && std::string_view(update) == "1") {
        std::ofstream(documents + "REFERENCE.md", std::ios::binary) << Written();
    }
}

/// Returns the names of the properties of an expected class in the order of the puts, each once.
std::vector<std::string> PutNames(const ExpectedInstanceClass& expected) {
    std::vector<std::string> names;
    for (const ExpectedProperty& property : expected.tables.front().properties) {
        if (std::ranges::find(names, property.put.name) == names.end()) {
            names.push_back(property.put.name);
        }
    }
    return names;
}

TEST(Reference, IsTheCommittedDocument) {
    UpdateDocument();
    EXPECT_EQ(FirstDifference(Written(), ReadDocument("REFERENCE.md")), "")
        << "run tools/reference";
}

TEST(Reference, DescribesExactlyWhatTheRecordedHostsPublish) {
    EXPECT_EQ(Described(), Published());
}

class ReferenceTest : public testing::TestWithParam<ExpectedInstanceClass> {};

TEST_P(ReferenceTest, DescribesAClassInTheOrderOfThePuts) {
    EXPECT_EQ(DescribedProperties(Notes(), GetParam().name), PutNames(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(EveryClass, ReferenceTest, testing::ValuesIn(ExpectedInstanceClasses()),
                         [](const auto& expected) { return expected.param.name; });

TEST(Reference, DescribesTheIndication) {
    EXPECT_EQ(DescribedProperties(Notes(), "QV_SATADeviceIndication"), IndicatedNames());
}

}  // namespace
}  // namespace qv::test
