#pragma once

#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/recorded/TextFile.h"

namespace qv::service {

/// The error of a recorded host that cannot be read. The message is one line: file, place, reason.
class HostFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads a recorded host from its JSON form (hosts/README.md). `name` names the file in messages.
/// Throws HostFileError.
RecordedHost ReadHostText(std::string_view json, std::string_view name);

/// Reads a recorded host from a file in UTF-8, or in UTF-16 with a byte-order mark, as
/// PowerShell 5.1 writes it. Throws HostFileError, also for a file of more than `mostBytes`.
RecordedHost ReadHostFile(const std::filesystem::path& file,
                          std::uintmax_t mostBytes = noFileLimit);

}  // namespace qv::service
