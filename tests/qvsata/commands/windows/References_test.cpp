#include <gmock/gmock.h>

#include "tests/qvsata/commands/windows/Desktop.h"

namespace qv::test {
namespace {

TEST(References, AreTheAssociationsOfAnObject) {
    EXPECT_EQ(Ask({"references", desktopComputer}).size(), 14U);
    EXPECT_EQ(Ask({"references", desktopComputer, "--assoc", "QV_SATAHostedCollection"}).size(),
              1U);
    EXPECT_EQ(Ask({"references", desktopComputer, "--role", "Antecedent"}).size(), 1U);
}

TEST(References, AreWhatTheQueryGives) {
    EXPECT_EQ(Ask({"references", desktopComputer, "--role", "GroupComponent"}),
              Ask({"query", "REFERENCES OF {" + desktopComputer + "} WHERE Role=GroupComponent"}));
}

TEST(References, RefuseAnUnknownClass) {
    EXPECT_EQ(DesktopFailure({"references", desktopComputer, "--assoc", "NoClass"}),
              "qvsata: unknown class 'NoClass'\n");
}

}  // namespace
}  // namespace qv::test
