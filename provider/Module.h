#pragma once

#include <windows.h>

#include <utility>

namespace qv::provider {

/// Keeps the library loaded. Every object that the library creates has one.
class ModuleReference {
public:
    ModuleReference();
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference();
};

/// Keeps the library in use and mapped, even if its user frees it early: for a thread that the
/// library starts.
class LibraryUse {
public:
    LibraryUse();
    LibraryUse(const LibraryUse&) = delete;
    LibraryUse& operator=(const LibraryUse&) = delete;
    /// Must not run on the thread itself: the code to return to could be unloaded.
    ~LibraryUse();

    /// Leaves the loader's reference to the caller: a thread drops it with
    /// FreeLibraryAndExitThread.
    HMODULE Detach() { return std::exchange(mapped_, nullptr); }

private:
    ModuleReference reference_;
    HMODULE mapped_ = nullptr;
};

/// Counts IClassFactory::LockServer calls.
void LockModule(bool lock);

/// Returns whether an object, a server lock or a thread still needs the library.
bool IsModuleInUse();

/// The library's own instance handle, set when the library is loaded.
void SetModuleInstance(HINSTANCE loaded);
HINSTANCE ModuleInstance();

}  // namespace qv::provider
