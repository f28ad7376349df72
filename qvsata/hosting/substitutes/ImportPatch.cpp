#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/windows/WbemStatus.h"
#include "qvsata/cim/Utf8.h"

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

    /// Returns whether the names of a table are missing. Its addresses replaced them when the
    /// module was loaded.
    bool HasNamelessImports() const {
        return std::ranges::any_of(Libraries(), [](const IMAGE_IMPORT_DESCRIPTOR* library) {
            return library->OriginalFirstThunk == 0;
        });
    }

    /// Returns the entries of the address tables through which the module calls a function.
    std::vector<void*> SlotsOf(std::string_view function) const {
        std::vector<void*> slots;
        for (const IMAGE_IMPORT_DESCRIPTOR* library : Libraries()) {
            AddSlots(*library, function, slots);
        }
        return slots;
    }

private:
    /// Returns the libraries from which the module imports.
    std::vector<const IMAGE_IMPORT_DESCRIPTOR*> Libraries() const {
        std::vector<const IMAGE_IMPORT_DESCRIPTOR*> libraries;
        const std::size_t count = imports_.Size / sizeof(IMAGE_IMPORT_DESCRIPTOR);
        for (std::size_t index = 0; index < count; ++index) {
            const auto* library = Entry<IMAGE_IMPORT_DESCRIPTOR>(imports_.VirtualAddress, index);
            if (library == nullptr || library->Name == 0) {
                break;
            }
            libraries.push_back(library);
        }
        return libraries;
    }

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

std::string FileOf(HMODULE module) {
    std::wstring name(1024, L'\0');
    name.resize(GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size())));
    return Utf8OfPath(name);
}

}  // namespace

ImportPatch::Slot::Slot(Function* place, Function replacement) : place_(place), original_(*place) {
    if (!Write(replacement)) {
        const DWORD error = GetLastError();
        Write(original_);
        windows::ThrowIfFailed(HRESULT_FROM_WIN32(error));
    }
}

bool ImportPatch::Slot::Write(Function function) {
    DWORD protection = 0;
    if (!VirtualProtect(place_, sizeof(*place_), PAGE_READWRITE, &protection)) {
        return false;
    }
    *place_ = function;
    return VirtualProtect(place_, sizeof(*place_), protection, &protection) != FALSE;
}

ImportPatch::ImportPatch(HMODULE module, const char* function, Function replacement) {
    const ModuleImage image(module);
    if (image.HasNamelessImports()) {
        throw std::runtime_error(FileOf(module) + ": has imports without names, so " + function +
                                 " cannot be replaced in it");
    }
    for (void* found : image.SlotsOf(function)) {
        slots_.emplace_back(static_cast<Function*>(found), replacement);
    }
    if (slots_.empty()) {
        throw std::runtime_error(FileOf(module) + ": does not import " + function +
                                 " by name, so it cannot be replaced in it");
    }
}

}  // namespace qv::service
