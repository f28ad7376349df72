// What commands say of failure-prediction rows that are unlike the ordinary ones.
#include "qvsata/session/OsDisks.h"

#include <gmock/gmock.h>

#include <fstream>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::EndsWith;
using testing::HasSubstr;

/// A recording whose first failure-prediction row is changed.
class UnusualPrediction : public testing::Test {
protected:
    explicit UnusualPrediction(const json& change) {
        json host;
        std::ifstream(QV_SOURCE_DIR "/hosts/ahci-desktop.json") >> host;
        host["namespaces"]["root\\wmi"]["MSStorageDriver_FailurePredictStatus"][0].update(change);
        std::ofstream(file_.Path()) << host;
    }

    Ending On(std::vector<std::string> command) const {
        command.insert(command.end(),
                       {"--host", file_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
        return RunHere(command);
    }

private:
    const TemporaryFile file_;
};

class PredictedFailureOfNoDisk : public UnusualPrediction {
protected:
    PredictedFailureOfNoDisk()
        : UnusualPrediction({{"InstanceName", "SCSI\\GONE_0"}, {"PredictFailure", true}}) {}

    const std::string warning =
        "warning: a failure is predicted for a device that is no known disk: SCSI\\GONE_0\n";
};

TEST_F(PredictedFailureOfNoDisk, IsToldBesideTheListOfDisks) {
    EXPECT_EQ(On({"disks"}).errors, warning);
    EXPECT_EQ(json::parse(On({"disks", "--format", "json"}).output)["failingOthers"],
              json::array({"SCSI\\GONE_0"}));
}

TEST_F(PredictedFailureOfNoDisk, IsToldInTheTopology) {
    const Ending tree = On({"topology"});
    EXPECT_EQ(tree.errors, warning);
    EXPECT_THAT(tree.output, EndsWith("; failure predicted for 1 unknown device\n"));
    EXPECT_EQ(json::parse(On({"topology", "--format", "json"}).output)["failingOthers"],
              json::array({"SCSI\\GONE_0"}));
    EXPECT_THAT(On({"topology", "--format", "dot"}).output, HasSubstr("unknown device"));
}

TEST_F(PredictedFailureOfNoDisk, IsToldByAWatch) {
    EXPECT_THAT(On({"watch"}).errors, HasSubstr(warning));
}

class PredictionWithoutAnAnswer : public UnusualPrediction {
protected:
    PredictionWithoutAnAnswer() : UnusualPrediction({{"PredictFailure", nullptr}}) {}
};

TEST_F(PredictionWithoutAnAnswer, IsUnknown) {
    const Ending disks = On({"disks", "--format", "json"});
    EXPECT_TRUE(json::parse(disks.output)["disks"][0]["failurePredicted"].is_null());
    EXPECT_EQ(disks.errors,
              "warning: disk #0: its failure-prediction row does not tell whether it will fail\n");
    EXPECT_THAT(On({"topology"}).output, EndsWith("; failure prediction unknown for 1 disk\n"));
}

}  // namespace
}  // namespace qv::test
