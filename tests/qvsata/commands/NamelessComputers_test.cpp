// What commands say of recordings that do not name their computer.
#include <gmock/gmock.h>

#include <fstream>
#include <string>

#include "nlohmann/json.hpp"
#include "tests/qvsata/commands/RunHere.h"
#include "tests/support/TemporaryFile.h"

namespace qv::test {
namespace {

using nlohmann::json;
using testing::HasSubstr;
using testing::Not;

/// Two recordings of a disk that fails, with other names of their computer.
class RenamedDrill : public testing::Test {
protected:
    explicit RenamedDrill(const json& names) {
        Write("0-healthy.json", names, before_);
        Write("3-failed.json", names, after_);
    }

    Ending Watched() const {
        return RunHere({"watch", "--host", before_.Path().string(), "--then",
                        after_.Path().string(), "--mof", QV_SOURCE_DIR "/mof"});
    }

    json Difference() const {
        const Ending run = RunHere({"diff", before_.Path().string(), after_.Path().string(),
                                    "--format", "json", "--mof", QV_SOURCE_DIR "/mof"});
        return json::parse(run.output);
    }

private:
    static void Write(const std::string& recording, const json& names, const TemporaryFile& file) {
        json host;
        std::ifstream(QV_SOURCE_DIR "/hosts/drill/" + recording) >> host;
        host["computer"] = names;
        std::ofstream(file.Path()) << host;
    }

    const TemporaryFile before_;
    const TemporaryFile after_;
};

class NamelessComputers : public RenamedDrill {
protected:
    NamelessComputers() : RenamedDrill(json::object()) {}
};

TEST_F(NamelessComputers, AreNotTakenForOneByAWatch) {
    const Ending watch = Watched();
    EXPECT_EQ(watch.exitCode, 0);
    EXPECT_THAT(watch.errors,
                HasSubstr("warning: the recordings name no computer: they may be of several\n"));
}

TEST_F(NamelessComputers, AreNotTakenForOneByADifference) {
    EXPECT_TRUE(Difference()["sameComputer"].is_null());
}

TEST_F(NamelessComputers, RaiseNoEventsAndTheWatchSaysSo) {
    const Ending watch = Watched();
    EXPECT_EQ(watch.output, "");
    EXPECT_THAT(watch.errors, HasSubstr("warning: the computer's name cannot be read: the provider "
                                        "raises no events\n"));
}

/// The provider does not use the name of the server.
class ComputersWithTheNameOfAServer : public RenamedDrill {
protected:
    ComputersWithTheNameOfAServer() : RenamedDrill({{"server", "DEN"}}) {}
};

TEST_F(ComputersWithTheNameOfAServer, AreOneButRaiseNoEvents) {
    const Ending watch = Watched();
    EXPECT_EQ(watch.output, "");
    EXPECT_THAT(watch.errors, HasSubstr(": the provider raises no events\n"));
    EXPECT_THAT(watch.errors, Not(HasSubstr("several")));
}

class NamedComputers : public RenamedDrill {
protected:
    NamedComputers() : RenamedDrill({{"netbios", "DEN"}}) {}
};

TEST_F(NamedComputers, RaiseEventsWithoutAWarning) {
    const Ending watch = Watched();
    EXPECT_THAT(watch.output, HasSubstr("  603  disk error"));
    EXPECT_THAT(watch.errors, Not(HasSubstr("warning")));
}

}  // namespace
}  // namespace qv::test
