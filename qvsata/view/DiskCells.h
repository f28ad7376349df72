#pragma once

#include "qvsata/view/Topology.h"
#include "qvsata/view/text/CellRow.h"

namespace qv::view {

/// Returns the columns of a disk's line: drive number, health, model, size in GB and GiB, serial
/// number. Every disk has the same number of columns.
CellRow DiskCells(const Disk& disk);

}  // namespace qv::view
