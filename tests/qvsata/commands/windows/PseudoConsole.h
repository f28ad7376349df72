#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/Handle.h"
#include "tests/qvsata/commands/windows/Reading.h"

namespace qv::test {

/// An invisible console for a process. A test presses its keys and reads its screen. Requires
/// Windows 10.
class PseudoConsole {
public:
    PseudoConsole();
    PseudoConsole(const PseudoConsole&) = delete;
    PseudoConsole& operator=(const PseudoConsole&) = delete;
    ~PseudoConsole();

    /// For the STARTUPINFOEX of a process that is attached to it.
    LPPROC_THREAD_ATTRIBUTE_LIST Attributes() const;

    void PressCtrlC() const;

    /// Closes the console and returns everything shown, as sent to a terminal.
    std::string Close();

private:
    windows::KernelHandle keyboard_;  ///< for writing
    std::optional<Reading> screen_;
    void* console_ = nullptr;
    mutable std::vector<char> attributes_;
};

}  // namespace qv::test
