#include "qvsata/view/DiskTable.h"

#include <gtest/gtest.h>

namespace qv::test {
namespace {

using view::DisksAsText;
using view::OsDisk;
using view::PlainText;

const OsDisk published{0,        "Model A", 240054796800, "SN1", "FW1", "IDE",
                       "PCI\\A", "IDE\\A",  {2, "OK"},    false, ""};
const OsDisk unpublished{10, "Model B", {},        "",   "",          "USB",
                         "", "USB\\B",  {2, "OK"}, true, "bus is USB"};

TEST(DiskTable, HasALineForEachDisk) {
    EXPECT_EQ(PlainText(DisksAsText({published, unpublished}, {})),
              " #  Health                   Model        Size  Bus  Published       "
              "Attached to  Firmware  S/N\n"
              " 0  OK                       Model A  240.1 GB  IDE  yes             "
              "PCI\\A        FW1       SN1\n"
              "10  ! OK, failure predicted  Model B         -  USB  no: bus is USB  "
              "-            -         -\n");
}

TEST(DiskTable, HasABlockForEachDiskWhereALineDoesNotFit) {
    EXPECT_EQ(PlainText(DisksAsText({published}, 60)),
              "#0  OK  Model A\n"
              "    Size         240.1 GB\n"
              "    Bus          IDE\n"
              "    Published    yes\n"
              "    Attached to  PCI\\A\n"
              "    Firmware     FW1\n"
              "    S/N          SN1\n");
}

}  // namespace
}  // namespace qv::test
