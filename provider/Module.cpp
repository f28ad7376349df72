#include "provider/Module.h"

#include <atomic>

#include "platform/windows/WindowsHostFacts.h"
#include "platform/windows/WmiQueryPort.h"
#include "provider/BuilderLog.h"
#include "source/LoggedQueryPort.h"

namespace qv::provider {
namespace {

constinit std::atomic<long> uses = 0;
constinit HINSTANCE instance = nullptr;

const windows::WmiQueryPort service;
const windows::WindowsHostFacts host;
LentLog queryLog;
BuilderLog builderLog;
const LoggedQueryPort queries(service, queryLog);
const NativeAPI nativeApi(queries, host, builderLog);

}  // namespace

ModuleReference::ModuleReference() {
    ++uses;
}

ModuleReference::~ModuleReference() {
    --uses;
}

LibraryUse::LibraryUse() {
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(ModuleInstance()), &mapped_);
}

LibraryUse::~LibraryUse() {
    if (mapped_ != nullptr) {
        FreeLibrary(mapped_);
    }
}

void LockModule(bool lock) {
    uses += lock ? 1 : -1;
}

bool IsModuleInUse() {
    return uses != 0;
}

void SetModuleInstance(HINSTANCE loaded) {
    instance = loaded;
}

HINSTANCE ModuleInstance() {
    return instance;
}

const NativeAPI& ProcessNativeAPI() {
    return nativeApi;
}

LentLog& ProcessQueryLog() {
    return queryLog;
}

}  // namespace qv::provider
