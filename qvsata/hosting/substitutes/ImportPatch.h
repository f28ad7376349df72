#pragma once

#include <windows.h>

#include <vector>

namespace qv::service {

/// Replaces a system function in the import address table of a loaded module, from construction to
/// destruction. Calls of that module reach the replacement; other modules are unaffected. The
/// module must stay loaded for that time, and no other thread may patch it.
class ImportPatch {
public:
    using Function = void (*)();

    /// `function` is the imported name. A module that does not import it by name is left unchanged.
    /// Throws RequestError if the table cannot be written.
    ImportPatch(HMODULE module, const char* function, Function replacement);
    ImportPatch(const ImportPatch&) = delete;
    ImportPatch& operator=(const ImportPatch&) = delete;
    ~ImportPatch();

private:
    struct Entry {
        Function* slot;
        Function original;
    };

    static bool Write(Function* slot, Function function);

    std::vector<Entry> entries_;
};

}  // namespace qv::service
