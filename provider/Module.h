#pragma once

#include <windows.h>

#include <utility>

namespace qv::provider {

/// Keeps the library loaded while it lives: a member of every object that the library hands out,
/// held by each server lock.
class ModuleReference {
public:
    ModuleReference();
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference();
};

/// Keeps the library in use and mapped while it lives, even where its user frees it early: for a
/// thread that the library starts.
class LibraryUse {
public:
    LibraryUse();
    LibraryUse(const LibraryUse&) = delete;
    LibraryUse& operator=(const LibraryUse&) = delete;
    /// Never on the thread itself: it could return into a library that is gone.
    ~LibraryUse();

    /// Leaves it to the caller to let the library go: a thread does so with
    /// FreeLibraryAndExitThread.
    HMODULE Detach() { return std::exchange(mapped_, nullptr); }

private:
    ModuleReference reference_;
    HMODULE mapped_ = nullptr;
};

/// Counts IClassFactory::LockServer calls.
void LockModule(bool lock);

/// Whether an object, a lock or a thread still needs the library.
bool IsModuleInUse();

/// The library's own instance handle, set when the library is loaded.
void SetModuleInstance(HINSTANCE loaded);
HINSTANCE ModuleInstance();

}  // namespace qv::provider
