#pragma once

#include <windows.h>

#include <vector>

namespace qv::service {

/// Replaces a system function in the import address table of a loaded module: calls of that module
/// reach the replacement, from construction to destruction; other modules are not touched. The
/// module must stay loaded for as long. No other thread may patch the same module meanwhile.
class ImportPatch {
public:
    using Function = void (*)();

    /// `function` is the imported name. A module that does not import it by name is left as it is.
    /// Raises RequestError when the table cannot be written.
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
