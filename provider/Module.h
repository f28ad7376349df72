#pragma once

#include <windows.h>

#include "NativeAPI/NativeAPI.h"
#include "provider/LentLog.h"

namespace qv::provider {

/// Keeps the library loaded while it lives: a member of every object that the library hands out,
/// held by each server lock. Threads that the library starts end before the object that owns them.
class ModuleReference {
public:
    ModuleReference();
    ModuleReference(const ModuleReference&) = delete;
    ModuleReference& operator=(const ModuleReference&) = delete;
    ~ModuleReference();
};

/// Counts IClassFactory::LockServer calls.
void LockModule(bool lock);

/// Whether an object, a lock or a thread still needs the library.
bool IsModuleInUse();

/// The library's own instance handle, set when the library is loaded.
void SetModuleInstance(HINSTANCE loaded);
HINSTANCE ModuleInstance();

/// The one data layer of the process, there from the loading of the library to its unloading.
const NativeAPI& ProcessNativeAPI();

/// Where the data layer's queries that fail leave a line.
LentLog& ProcessQueryLog();

}  // namespace qv::provider
