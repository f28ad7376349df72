#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

#include "tests/support/windows/LoadedImage.h"

namespace qv::test {

/// While it lives, a module calls `replacement` instead of a system function: for failures that a
/// healthy system does not show.
template <typename Function>
class ReplacedImport {
public:
    ReplacedImport(HMODULE module, const char* name, Function* replacement)
        : slot_(LoadedImage(module).ImportSlot(name)) {
        if (slot_ == nullptr) {
            throw std::runtime_error(std::string("not imported: ") + name);
        }
        original_ = *slot_;
        Write(reinterpret_cast<void*>(replacement));
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport() { Write(original_); }

private:
    void Write(void* address) {
        DWORD protection = 0;
        VirtualProtect(slot_, sizeof *slot_, PAGE_READWRITE, &protection);
        *slot_ = address;
        VirtualProtect(slot_, sizeof *slot_, protection, &protection);
    }

    void** slot_;
    void* original_ = nullptr;
};

}  // namespace qv::test
