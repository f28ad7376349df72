#pragma once

#include <vector>

#include "qvsata/view/StyledText.h"
#include "qvsata/view/Topology.h"

namespace qv::view {

/// What stands in one column of a line.
struct Cell {
    Span span;
    bool toTheRight = false;
};

/// A disk as the columns of its line: status, model, size in GB and GiB, flags of the partition,
/// serial number. The same number of them for every disk.
std::vector<Cell> DiskCells(const Disk& disk);

}  // namespace qv::view
