#pragma once

namespace qv::tool {

// The exit codes of the program; 0 if all went well. docs/TOOL.md explains them.
inline constexpr int failed = 1;      ///< an error ended the command
inline constexpr int usageError = 2;  ///< the command line is wrong
inline constexpr int incomplete = 3;  ///< the answer rests on sources that could not be read
inline constexpr int different = 4;   ///< what was compared differs, or is not as it should be

}  // namespace qv::tool
