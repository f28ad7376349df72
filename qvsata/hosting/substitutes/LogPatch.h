#pragma once

#include <windows.h>

#include <filesystem>

#include "qvsata/hosting/substitutes/ImportPatch.h"

namespace qv::service {

/// Decides where a loaded library's two logs are written, from construction to destruction: in a
/// given folder, or nowhere. The machine's own log settings and its log folder are not used. At
/// most one object per process.
class LogPatch {
public:
    /// @param folder where both logs are written, with the default level and the failed queries;
    /// empty: nowhere
    /// Throws std::system_error, whose message names the file, if a log cannot be written in the
    /// folder, and RequestError if the library cannot be patched.
    LogPatch(HMODULE library, const std::filesystem::path& folder);
    LogPatch(const LogPatch&) = delete;
    LogPatch& operator=(const LogPatch&) = delete;
    ~LogPatch();

private:
    ImportPatch openKey_;
    ImportPatch queryValue_;
    ImportPatch closeKey_;
    ImportPatch createFile_;
};

}  // namespace qv::service
