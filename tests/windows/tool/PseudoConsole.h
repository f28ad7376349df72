#pragma once

#include <windows.h>

#include <vector>

#include "platform/windows/Handle.h"

namespace qv::test {

/// A console that nobody sees, for a process whose keys a test presses. Windows has them from
/// version 10 on.
class PseudoConsole {
public:
    PseudoConsole();
    PseudoConsole(const PseudoConsole&) = delete;
    PseudoConsole& operator=(const PseudoConsole&) = delete;
    ~PseudoConsole();

    /// For the STARTUPINFOEX of a process that is to be attached to it.
    LPPROC_THREAD_ATTRIBUTE_LIST Attributes() const;

    void PressCtrlC() const;

private:
    windows::KernelHandle keyboard_;  ///< for writing
    windows::KernelHandle screen_;    ///< for reading; nobody does
    void* console_ = nullptr;
    mutable std::vector<char> attributes_;
};

}  // namespace qv::test
