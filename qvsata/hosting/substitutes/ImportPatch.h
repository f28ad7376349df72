#pragma once

#include <windows.h>

#include <deque>

namespace qv::service {

/// Replaces a system function in the import address table of a loaded module, from construction to
/// destruction. Calls of that module reach the replacement; other modules are unaffected. The
/// module must stay loaded for that time, and no other thread may patch it.
class ImportPatch {
public:
    using Function = void (*)();

    /// `function` is the imported name. Throws std::runtime_error, whose message names the module's
    /// file, if the module does not import the function by name, or imports anything without names:
    /// calls could then go past the replacement. Throws RequestError if the table cannot be
    /// written. The table is as before when the constructor throws.
    ImportPatch(HMODULE module, const char* function, Function replacement);
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;

private:
    /// An entry of the table, replaced while the object lives.
    class Slot {
    public:
        Slot(Function* place, Function replacement);
        Slot(const Slot&) = delete;
        Slot& operator=(const Slot&) = delete;
        ~Slot() { Write(original_); }

    private:
        bool Write(Function function);

        Function* place_;
        Function original_;
    };

    std::deque<Slot> slots_;
};

}  // namespace qv::service
