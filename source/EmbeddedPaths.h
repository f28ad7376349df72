#pragma once

#include <string>

namespace qv {

/// One step of ReduceEmbeddedPaths. False when the text holds no run of four backslashes, which is
/// the end; otherwise cuts the server and the namespace of the first embedded path, where a ":"
/// ends them, and returns true.
bool ReduceFirstEmbeddedPath(std::string& relativePath);

/// Reduces the references inside the key values of a relative object path to relative paths: each
/// run of four backslashes up to and including the next ":" is cut out. Other backslashes stay.
/// A run without a ":" after it is never got rid of, on purpose: the call does not return.
void ReduceEmbeddedPaths(std::string& relativePath);

}  // namespace qv
