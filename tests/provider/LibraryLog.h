#pragma once

#include <string>
#include <vector>

namespace qv::test {

/// The common log of the loaded library, in a folder of this test program. Its first line is
/// written before the first test.
class LibraryLog {
public:
    static std::size_t LineCount();

    /// Returns the lines after the first `from`, without their times.
    static std::vector<std::wstring> LinesFrom(std::size_t from);

    /// Returns the name of the mutex that the library holds while it writes a line.
    static std::wstring MutexName();
};

}  // namespace qv::test
