#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/windows/Handle.h"
#include "tests/qvsata/commands/windows/Reading.h"

namespace qv::test {

/// A console that nobody sees, for a process whose keys a test presses or whose screen it reads.
/// Windows has them from version 10 on.
class PseudoConsole {
public:
    PseudoConsole();
    PseudoConsole(const PseudoConsole&) = delete;
    PseudoConsole& operator=(const PseudoConsole&) = delete;
    ~PseudoConsole();

    /// For the STARTUPINFOEX of a process that is to be attached to it.
    LPPROC_THREAD_ATTRIBUTE_LIST Attributes() const;

    void PressCtrlC() const;

    /// Closes it; gives all that was to be seen, as a terminal is told it.
    std::string Close();

private:
    windows::KernelHandle keyboard_;  ///< for writing
    std::optional<Reading> screen_;
    void* console_ = nullptr;
    mutable std::vector<char> attributes_;
};

}  // namespace qv::test
