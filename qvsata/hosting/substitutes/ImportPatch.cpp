#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <cstddef>
#include <string_view>

#include "platform/Status.h"

namespace qv::service {
namespace {

/// The headers and tables of a loaded module. Nothing beyond the module is read: another build of a
/// library may be packed, bound or made by an unusual linker.
class ModuleImage {
public:
    explicit ModuleImage(HMODULE module) : base_(reinterpret_cast<std::byte*>(module)) {
        const auto* dos = At<IMAGE_DOS_HEADER>(0);
        const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos->e_lfanew));
        const bool isImage = dos->e_magic == IMAGE_DOS_SIGNATURE && headers != nullptr &&
                             headers->Signature == IMAGE_NT_SIGNATURE;
        size_ = isImage ? headers->OptionalHeader.SizeOfImage : 0;
        if (isImage && headers->OptionalHeader.NumberOfRvaAndSizes > IMAGE_DIRECTORY_ENTRY_IMPORT) {
            imports_ = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        }
    }

    /// Returns the entries of the address tables through which the module calls a function.
    std::vector<void*> SlotsOf(std::string_view function) const {
        std::vector<void*> slots;
        const std::size_t count = imports_.Size / sizeof(IMAGE_IMPORT_DESCRIPTOR);
        for (std::size_t index = 0; index < count; ++index) {
            const auto* library = Entry<IMAGE_IMPORT_DESCRIPTOR>(imports_.VirtualAddress, index);
            if (library == nullptr || library->Name == 0) {
                break;
            }
            AddSlots(*library, function, slots);
        }
        return slots;
    }

private:
    /// A library without a table of names, whose addresses the linker has bound, adds nothing.
    void AddSlots(const IMAGE_IMPORT_DESCRIPTOR& library, std::string_view function,
                  std::vector<void*>& slots) const {
        for (std::size_t index = 0;; ++index) {
            const auto* name = Entry<IMAGE_THUNK_DATA>(library.OriginalFirstThunk, index);
            auto* address = Entry<IMAGE_THUNK_DATA>(library.FirstThunk, index);
            if (name == nullptr || address == nullptr || name->u1.AddressOfData == 0) {
                return;
            }
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) &&
                IsText(name->u1.AddressOfData + offsetof(IMAGE_IMPORT_BY_NAME, Name), function)) {
                slots.push_back(&address->u1.Function);
            }
        }
    }

    bool IsText(std::size_t address, std::string_view text) const {
        const auto* first = At<char>(address);
        const auto* end = At<char>(address + text.size());
        return first != nullptr && end != nullptr && *end == '\0' &&
               std::string_view(first, text.size()) == text;
    }

    /// Returns the structure at an address relative to the module's base; null if it is not wholly
    /// inside the module.
    template <typename T>
    T* At(std::size_t address) const {
        const bool isInside = address <= size_ && sizeof(T) <= size_ - address;
        return isInside ? static_cast<T*>(static_cast<void*>(base_ + address)) : nullptr;
    }

    /// Returns an entry of a table; null also if the module has no such table.
    template <typename T>
    T* Entry(DWORD table, std::size_t index) const {
        return table == 0 ? nullptr : At<T>(table + index * sizeof(T));
    }

    std::byte* base_;
    std::size_t size_ = 0x1000;  ///< until the headers tell it: their page
    IMAGE_DATA_DIRECTORY imports_{};
};

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
    for (void* found : ModuleImage(module).SlotsOf(function)) {
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
