#pragma once

#include <utility>

#include "qvsata/view/OsDisk.h"

namespace qv::test {

/// Returns a disk of the operating system with a number and a health; its texts are empty.
inline view::OsDisk NumberedDisk(std::int64_t number, view::Health health) {
    view::OsDisk disk;
    disk.number = number;
    disk.health = std::move(health);
    return disk;
}

}  // namespace qv::test
