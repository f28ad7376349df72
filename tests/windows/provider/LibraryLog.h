#pragma once

#include <string>
#include <vector>

#include "tests/windows/log/ScratchFolder.h"
#include "tests/windows/log/ScratchRegistry.h"

namespace qv::test {

/// The common log of the loaded library, in a folder of its own: the settings say so at the
/// library's first line. Lives as long as the process uses the library.
class LibraryLog {
public:
    /// Calls `firstUse`, which makes the library write its first line.
    template <typename FirstUse>
    explicit LibraryLog(FirstUse firstUse) {
        testing::ScratchRegistry settings;
        const wchar_t* path = L"Software\\Corvane\\WBEM";
        settings.SetText(path, L"LogFolder", folder_.Path());
        settings.SetNumber(path, L"LogLevel", 1);
        settings.SetNumber(path, L"LogMaxSize", 0x2000000);
        firstUse();
    }

    std::size_t LineCount() const { return Lines().size(); }

    /// The lines behind the first `from`, without their times.
    std::vector<std::wstring> LinesFrom(std::size_t from) const {
        std::vector<std::wstring> lines;
        for (const std::wstring& line : Lines()) {
            lines.push_back(testing::TextOf(line));
        }
        lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(from));
        return lines;
    }

private:
    std::vector<std::wstring> Lines() const {
        return testing::ReadLinesOf(folder_.File(L"QVWMISATA.log"));
    }

    testing::ScratchFolder folder_;
};

/// The log of this test program.
LibraryLog& TheLog();

}  // namespace qv::test
