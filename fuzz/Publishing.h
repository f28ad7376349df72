#pragma once

#include <cstddef>

#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::fuzz {

/// Publishes one class of a host, which `chosen` (less than 256) chooses: checks an association
/// against plain loops, and that an instance is found by its path. One choice publishes all classes
/// and checks the views of them.
void CheckPublished(const service::RecordedHost& host, std::size_t chosen);

/// Checks what people and programs read of published objects: no line controls a terminal, and what
/// is JSON parses.
void CheckViews(const view::PublishedHost& host, std::size_t columns);

}  // namespace qv::fuzz
