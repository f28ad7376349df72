#include "qvsata/recorded/RecordedClass.h"

#include <gmock/gmock.h>

namespace qv::test {
namespace {

using namespace service;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<RowProperties> PropertiesIn(const RecordedClass& recorded) {
    std::vector<RowProperties> rows;
    for (const RecordedRow& row : recorded.Rows()) {
        rows.push_back(row.Properties());
    }
    return rows;
}

TEST(RecordedClass, RowsWithTheSameNamesShareThem) {
    RecordedClass recorded("C");
    recorded.Add({{"A", 1}, {"B", 2}});
    recorded.Add({{"B", 3}});
    recorded.Add({{"A", 4}, {"B", 5}});
    EXPECT_EQ(&recorded.Rows()[0].Names(), &recorded.Rows()[2].Names());
    EXPECT_THAT(PropertiesIn(recorded),
                ElementsAre(RowProperties{{"A", 1}, {"B", 2}}, RowProperties{{"B", 3}},
                            RowProperties{{"A", 4}, {"B", 5}}));
}

TEST(RecordedClass, RowsWhoseNamesDifferInCaseOrOrderKeepTheirOwn) {
    RecordedClass recorded("C");
    recorded.Add({{"A", 1}, {"B", 2}});
    recorded.Add({{"B", 2}, {"A", 1}});
    recorded.Add({{"a", 1}, {"B", 2}});
    EXPECT_THAT(recorded.Rows()[1].Names(), ElementsAre("B", "A"));
    EXPECT_THAT(recorded.Rows()[2].Names(), ElementsAre("a", "B"));
}

TEST(RecordedClass, AChangedCopyLeavesTheOriginalAlone) {
    RecordedClass original("Win32_DiskDrive");
    original.Add({{"DeviceID", "1"}});
    RecordedClass copy = original;
    copy.Add({{"DeviceID", "2"}});
    const ObjectPath added{"", "", "Win32_DiskDrive", {{"DeviceID", "2", true}}, false};
    EXPECT_THAT(original.Rows(), SizeIs(1));
    EXPECT_EQ(original.Find(added), nullptr);
    EXPECT_EQ(copy.Find(added), &copy.Rows()[1]);
    copy.Fail(Status::failed);
    EXPECT_THAT(copy.Rows(), IsEmpty());
    EXPECT_EQ(original.Failure(), std::nullopt);
}

TEST(RecordedClass, FindsTheFirstOfSeveralRowsWithOnePath) {
    RecordedClass recorded("Win32_DiskDrive");
    recorded.Add({{"DeviceID", "x"}});
    recorded.Add({{"DeviceID", "D"}, {"Size", "1"}});
    recorded.Add({{"DeviceID", "d"}, {"Size", "2"}});
    const ObjectPath named{"", "", "Win32_DiskDrive", {{"DeviceID", "D", true}}, false};
    const ObjectPath shortForm{"", "", "Win32_DiskDrive", {{"", "D", true}}, false};
    EXPECT_EQ(recorded.Find(named), &recorded.Rows()[1]);
    EXPECT_EQ(recorded.Find(shortForm), &recorded.Rows()[1]);
}

TEST(RecordedClass, FindsARowByItsReferencesInAnySpelling) {
    RecordedClass recorded("Link");
    recorded.Add({{"To", R"(\\PC\root:C.K="A",L=2)"}, {"From", "S=@"}});
    const ObjectPath path{
        "", "", "link", {{"from", "s=@", true}, {"to", R"(c.l=2,k="a")", true}}, false};
    EXPECT_EQ(recorded.Find(path), &recorded.Rows()[0]);
}

TEST(RecordedClass, KeepsTheOrderOfRowsThatReferenceOneObject) {
    RecordedClass recorded("Link");
    recorded.Add({{"To", "C.K=1"}});
    recorded.Add({{"To", "C.K=2"}});
    recorded.Add({{"To", "c.k=1"}, {"From", "C.K=1"}});
    EXPECT_THAT(recorded.Referencing({"", "", "C", {{"K", "1", false}}, false}),
                ElementsAre(&recorded.Rows()[0], &recorded.Rows()[2]));
}

}  // namespace
}  // namespace qv::test
