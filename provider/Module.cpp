#include "provider/Module.h"

#include <atomic>

namespace qv::provider {
namespace {

constinit std::atomic<long> uses = 0;
constinit HINSTANCE instance = nullptr;

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

}  // namespace qv::provider
