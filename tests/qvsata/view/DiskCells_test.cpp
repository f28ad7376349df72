#include "qvsata/view/DiskCells.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::Disk;
using view::DiskCells;
using view::Span;
using view::Style;

std::vector<Span> SpansOf(const Disk& disk) {
    std::vector<Span> spans;
    for (const view::Cell& cell : DiskCells(disk)) {
        spans.push_back(cell.span);
    }
    return spans;
}

TEST(DiskCells, AreDriveNumberHealthModelSizesAndSerialNumber) {
    Disk disk;
    disk.number = 12;
    disk.status = {2, "OK"};
    disk.model = "Test disk";
    disk.size = 500'105'249'280U;
    disk.serialNumber = "S1";
    EXPECT_EQ(SpansOf(disk), (std::vector<Span>{{"#12"},
                                                {"OK", Style::good},
                                                {"Test disk"},
                                                {"500.1 GB"},
                                                {"465.8 GiB", Style::faint},
                                                {"S/N S1"}}));
}

TEST(DiskCells, OfADiskOfWhichNothingIsKnownAreDashes) {
    Disk disk;
    disk.status = {std::nullopt, "no status"};
    EXPECT_EQ(
        SpansOf(disk),
        (std::vector<Span>{
            {""}, {"! no status", Style::caution}, {"-"}, {"-"}, {"-", Style::faint}, {"S/N -"}}));
}

TEST(DiskCells, SayThatAFailureIsPredictedBesideAStatusOfOk) {
    Disk disk;
    disk.status = {2, "OK"};
    disk.failureIsPredicted = true;
    EXPECT_EQ(SpansOf(disk)[1], (Span{"! failure predicted (reported OK)", Style::caution}));
}

TEST(DiskCells, RoundSizesToTheNearestTenth) {
    Disk disk;
    disk.size = 1'949'999'999U;
    EXPECT_EQ(SpansOf(disk)[3].text, "1.9 GB");
    disk.size = 1'950'000'000U;
    EXPECT_EQ(SpansOf(disk)[3].text, "2.0 GB");
}

TEST(DiskCells, StandToTheRightInTheColumnsOfNumbersOnly) {
    std::vector<bool> toTheRight;
    for (const view::Cell& cell : DiskCells(Disk())) {
        toTheRight.push_back(cell.toTheRight);
    }
    EXPECT_EQ(toTheRight, (std::vector<bool>{true, false, false, true, true, false}));
}

}  // namespace
}  // namespace qv::test
