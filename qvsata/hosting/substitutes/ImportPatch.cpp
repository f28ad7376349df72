#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <cstddef>
#include <string_view>

#include "platform/Status.h"

namespace qv::service {
namespace {

/// Returns a structure of a loaded module by its address relative to the module's base.
template <typename T>
T* At(HMODULE module, DWORD address) {
    auto* base = reinterpret_cast<std::byte*>(module);
    return static_cast<T*>(static_cast<void*>(base + address));
}

const IMAGE_DATA_DIRECTORY& ImportDirectory(HMODULE module) {
    const auto* dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* headers = At<IMAGE_NT_HEADERS>(module, static_cast<DWORD>(dos->e_lfanew));
    return headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
}

/// Returns the entries of the address table through which the module calls a function.
std::vector<void*> SlotsOf(HMODULE module, std::string_view function) {
    std::vector<void*> slots;
    const IMAGE_DATA_DIRECTORY& directory = ImportDirectory(module);
    if (directory.Size == 0) {
        return slots;
    }
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* address = At<IMAGE_THUNK_DATA>(module, library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++address) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* imported =
                At<IMAGE_IMPORT_BY_NAME>(module, static_cast<DWORD>(name->u1.AddressOfData));
            if (function == static_cast<const char*>(imported->Name)) {
                slots.push_back(&address->u1.Function);
            }
        }
    }
    return slots;
}

}  // namespace

bool ImportPatch::Write(Function* slot, Function function) {
    DWORD protection = 0;
    if (!VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection)) {
        return false;
    }
    *slot = function;
    return VirtualProtect(slot, sizeof(*slot), protection, &protection) != FALSE;
}

ImportPatch::ImportPatch(HMODULE module, const char* function, Function replacement) {
    for (void* found : SlotsOf(module, function)) {
        auto* slot = static_cast<Function*>(found);
        entries_.push_back({slot, *slot});
        if (!Write(slot, replacement)) {
            windows::ThrowIfFailed(HRESULT_FROM_WIN32(GetLastError()));
        }
    }
}

ImportPatch::~ImportPatch() {
    for (const Entry& entry : entries_) {
        Write(entry.slot, entry.original);
    }
}

}  // namespace qv::service
