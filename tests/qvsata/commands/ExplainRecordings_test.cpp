// `explain` on every recording: each source row has one verdict, and the instances that it names
// are those that are published.
#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>

#include "nlohmann/json.hpp"
#include "qvsata/view/PublishedObject.h"
#include "tests/qvsata/commands/RunHere.h"

namespace qv::test {
namespace {

using nlohmann::json;

std::vector<std::string> Recordings() {
    std::vector<std::string> files;
    for (const char* folder : {"hosts", "hosts/drill", "tests/hosts", "tests/hosts/languages"}) {
        for (const auto& file :
             std::filesystem::directory_iterator(std::filesystem::path(QV_SOURCE_DIR) / folder)) {
            if (file.path().extension() == ".json") {
                files.push_back(std::string(folder) + "/" + file.path().filename().string());
            }
        }
    }
    return files;
}

class ExplainRecordings : public testing::TestWithParam<std::string> {
protected:
    json Verdicts() const { return Printed({"explain"}).at("verdicts"); }
    json Enumerated(const std::string& className) const {
        return Printed({"enumerate", className}).at("objects");
    }

private:
    json Printed(std::vector<std::string> command) const {
        command.insert(command.end(), {"--format", "json"});
        return json::parse(RunOn(GetParam(), command).output);
    }
};

TEST_P(ExplainRecordings, GiveEachRowOneVerdict) {
    std::ifstream file(std::filesystem::path(QV_SOURCE_DIR) / GetParam());
    const json recorded = json::parse(file)["namespaces"];
    std::map<std::string, std::size_t> rows;
    for (const auto& [nameSpace, classes] : recorded.items()) {
        for (const auto& [name, list] : classes.items()) {
            rows[name] = list.is_array() ? list.size() : 0;
        }
    }
    std::map<std::string, std::size_t> verdicts;
    for (const json& verdict : Verdicts()) {
        ++verdicts[verdict["source"]];
    }
    for (const char* name : {"Win32_DiskDrive", "Win32_PhysicalMedia", "Win32_IDEController",
                             "Win32_IDEControllerDevice", "Win32_DiskDriveToDiskPartition",
                             "Win32_DiskPartition", "MSStorageDriver_FailurePredictStatus"}) {
        EXPECT_EQ(verdicts[name], rows[name]) << name;
    }
}

TEST_P(ExplainRecordings, NameThePublishedInstances) {
    std::map<std::string, std::multiset<std::string>> named;
    for (const json& verdict : Verdicts()) {
        for (const json& instance : verdict["instances"]) {
            named[instance["class"]].insert(instance["path"].dump());
        }
    }
    std::map<std::string, std::multiset<std::string>> published;
    for (const json& object : Enumerated("CIM_ManagedElement")) {
        published[object["__CLASS"]].insert(object["__RELPATH"].dump());
    }
    // These two describe the host and not a row.
    published.erase("QV_WinComputerSystem");
    published.erase("QV_SATAStorageCollection");
    EXPECT_EQ(named, published);
}

// The associations are those that `enumerate` lists: what each object takes part in, by its
// identity.
TEST_P(ExplainRecordings, NameTheAssociationsWithoutAnInstance) {
    std::map<std::string, std::set<std::string>> associationsOf;
    for (const char* base :
         {"CIM_Component", "CIM_Dependency", "CIM_ElementLocation", "CIM_MemberOfCollection",
          "CIM_SAPAvailableForElement", "CIM_InitiatorTargetLogicalUnitPath"}) {
        for (const json& object : Enumerated(base)) {
            for (const auto& [name, value] : object.items()) {
                const bool isReference = value.is_string() && !name.starts_with("__");
                associationsOf[isReference ? view::IdentityOf(value.get<std::string>()) : ""]
                    .insert(object["__CLASS"]);
            }
        }
    }
    for (const json& verdict : Verdicts()) {
        std::set<std::string> empty;
        for (const json& note : verdict["notes"]) {
            empty.insert(note["emptyAssociations"].begin(), note["emptyAssociations"].end());
        }
        std::set<std::string> taken;
        for (const json& instance : verdict["instances"]) {
            if (instance["path"].is_string()) {
                taken.merge(std::set(
                    associationsOf[view::IdentityOf(instance["path"].get<std::string>())]));
            }
        }
        for (const std::string& name : taken) {
            EXPECT_FALSE(empty.contains(name)) << verdict["row"] << name;
        }
        const std::size_t ofDisk = 9;
        if (verdict["source"] == "Win32_DiskDrive" && verdict["outcome"] == "published") {
            EXPECT_EQ(taken.size() + empty.size(), ofDisk) << verdict["row"];
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, ExplainRecordings, testing::ValuesIn(Recordings()),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::ranges::replace_if(
                                 name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
                             return name;
                         });

}  // namespace
}  // namespace qv::test
