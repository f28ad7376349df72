#include "qvsata/view/DiskTable.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::DisksAsText;
using view::OsDisk;
using view::PlainText;

OsDisk Published() {
    OsDisk disk;
    disk.number = 0;
    disk.model = "Model A";
    disk.size = 240054796800;
    disk.serialNumber = "SN1";
    disk.firmware = "FW1";
    disk.bus = "IDE";
    disk.attachment = "PCI\\A";
    disk.attachmentName = "AHCI";
    disk.deviceId = "IDE\\A";
    disk.health = {2, "OK"};
    return disk;
}

OsDisk Unpublished() {
    OsDisk disk;
    disk.number = 10;
    disk.model = "Model B";
    disk.bus = "USB";
    disk.health = {2, "OK"};
    disk.failureIsPredicted = true;
    disk.whyUnpublished = "bus is USB";
    return disk;
}

TEST(DiskTable, HasALineForEachDisk) {
    EXPECT_EQ(PlainText(DisksAsText({Published(), Unpublished()}, {})),
              "  #  Health                             Model        Size  Bus  Published       "
              "Attached to  Firmware  S/N\n"
              " #0  OK                                 Model A  240.1 GB  IDE  yes             "
              "AHCI         FW1       SN1\n"
              "#10  ! failure predicted (reported OK)  Model B         -  USB  no: bus is USB  "
              "-            -         -\n");
}

TEST(DiskTable, LeavesOutTheColumnsThatDoNotFitTheLeastImportantFirst) {
    EXPECT_EQ(PlainText(DisksAsText({Published()}, 60)),
              " #  Health  Model        Size  Bus  Published  Firmware  S/N\n"
              "#0  OK      Model A  240.1 GB  IDE  yes        FW1       SN1\n"
              "too narrow for: Attached to\n");
    EXPECT_EQ(PlainText(DisksAsText({Published()}, 45)),
              " #  Health  Model        Size  Published  S/N\n"
              "#0  OK      Model A  240.1 GB  yes        SN1\n"
              "too narrow for: Bus, Firmware, Attached to\n");
    EXPECT_EQ(PlainText(DisksAsText({Published()}, 35)),
              " #  Health  Model    Published  S/N\n"
              "#0  OK      Model A  yes        SN1\n"
              "too narrow for: Size, Bus, Firmware, Attached to\n");
}

TEST(DiskTable, HasABlockForEachDiskWhereNoLineFits) {
    EXPECT_EQ(PlainText(DisksAsText({Published()}, 27)),
              "#0  OK  Model A\n"
              "    Size 240.1 GB  Bus IDE\n"
              "    Published yes\n"
              "    Attached to AHCI\n"
              "    Firmware FW1  S/N SN1\n");
}

TEST(DiskTable, SaysWhereTheAttachmentCouldNotBeRead) {
    OsDisk disk = Unpublished();
    disk.attachmentIsRead = false;
    EXPECT_NE(PlainText(DisksAsText({disk}, {})).find("  no: bus is USB  not readable  "),
              std::string::npos);
}

}  // namespace
}  // namespace qv::test
