#pragma once

#include <vector>

#include "qvsata/view/StyledText.h"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// The content of one column of a line.
struct Cell {
    Span span;
    bool toTheRight = false;
};

/// Returns the columns of a disk's line: status, model, size in GB and GiB, partition flags, serial
/// number. Every disk has the same number of columns.
std::vector<Cell> DiskCells(const Disk& disk);

}  // namespace qv::view
