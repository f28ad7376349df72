#pragma once

#include <cstddef>

#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/view/PublishedObject.h"

namespace qv::fuzz {

/// Publishes the class of a host that `chosen` chooses: checks an association against plain loops,
/// and that an instance is found by its path.
void CheckClass(const service::RecordedHost& host, std::size_t chosen);

/// Publishes all classes of a host and checks the views of them.
void CheckViews(const service::RecordedHost& host, std::size_t columns);

/// Checks what people and programs read of published objects: no line controls a terminal, and what
/// is JSON parses.
void CheckViews(const view::PublishedHost& host, std::size_t columns);

}  // namespace qv::fuzz
