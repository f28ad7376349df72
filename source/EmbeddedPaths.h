#pragma once

#include <string>

namespace qv {

/// Performs one step of ReduceEmbeddedPaths. Returns false if the text has no run of four
/// backslashes. Otherwise removes the server and the namespace of the first embedded path, if a ":"
/// ends them, and returns true.
bool ReduceFirstEmbeddedPath(std::string& relativePath);

/// Reduces the references inside the key values of a relative object path to relative paths:
/// removes each run of four backslashes up to and including the next ":". Other backslashes stay. A
/// run without a ":" after it is never removed, on purpose: the call then does not return.
void ReduceEmbeddedPaths(std::string& relativePath);

}  // namespace qv
