#pragma once

#include <windows.h>

#include <stdexcept>

#include "platform/windows/Handle.h"

namespace qv::test {

/// A pipe whose write end a child process inherits.
struct Pipe {
    windows::KernelHandle reader;
    windows::KernelHandle writer;

    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
        if (!CreatePipe(reader.Receive(), writer.Receive(), &inherited, 0) ||
            !SetHandleInformation(reader.Get(), HANDLE_FLAG_INHERIT, 0)) {
            throw std::runtime_error("no pipe");
        }
    }
};

}  // namespace qv::test
