#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qv::view {

/// Returns the number of columns that a UTF-8 text takes on a terminal.
std::size_t WidthOf(std::string_view text);

/// Returns the blanks that pad a text to `width`; none if it is that wide already.
std::string Padding(std::size_t width, std::string_view text);

/// Returns the text without blanks at its ends.
std::string_view Trimmed(std::string_view text);

/// Returns a drive number as people write it: "#0"; a dash without one.
std::string DriveNumberText(std::optional<std::int64_t> number);

/// Returns a disk as people name it: "#0 MODEL"; what is missing is left out, and a dash stands for
/// both. The model has no blanks at its ends and is otherwise unchanged.
std::string DiskName(std::optional<std::int64_t> number, std::string_view model);

/// Returns a number of things: "1 disk", "2 disks".
std::string CountOf(std::size_t count, std::string_view thing);

/// Returns the printable text, see Printable; a dash if it is empty.
std::string OrDash(const std::string& text);

}  // namespace qv::view
