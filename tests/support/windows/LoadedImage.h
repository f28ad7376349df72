#pragma once

#include <windows.h>

#include <cstring>
#include <set>
#include <string>

namespace qv::test {

/// The headers of a loaded module.
class LoadedImage {
public:
    explicit LoadedImage(HMODULE module) : base_(reinterpret_cast<BYTE*>(module)) {}

    WORD Characteristics() const { return Headers().OptionalHeader.DllCharacteristics; }

    std::set<std::string> ExportedNames() const {
        const auto& table = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
        const DWORD* names = &At<DWORD>(table.AddressOfNames);
        std::set<std::string> found;
        for (DWORD index = 0; index < table.NumberOfNames; ++index) {
            found.insert(&At<char>(names[index]));
        }
        return found;
    }

    /// Returns the number of exported functions, including those without a name.
    DWORD ExportCount() const {
        return At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT))
            .NumberOfFunctions;
    }

    /// Returns the imported modules, in lower case.
    std::set<std::string> ImportedModules() const {
        std::set<std::string> found;
        for (const IMAGE_IMPORT_DESCRIPTOR* entry = Imports(); entry->Name != 0; ++entry) {
            std::string name = &At<char>(entry->Name);
            CharLowerA(name.data());
            found.insert(name);
        }
        return found;
    }

    /// Returns where the module keeps the address of an imported function; null if it imports none
    /// of that name.
    void** ImportSlot(const char* function) const {
        for (const IMAGE_IMPORT_DESCRIPTOR* entry = Imports(); entry->Name != 0; ++entry) {
            const auto* names = &At<IMAGE_THUNK_DATA>(entry->OriginalFirstThunk);
            for (DWORD index = 0; names[index].u1.AddressOfData != 0; ++index) {
                const auto& name =
                    At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(names[index].u1.AddressOfData));
                if (!IMAGE_SNAP_BY_ORDINAL(names[index].u1.Ordinal) &&
                    std::strcmp(reinterpret_cast<const char*>(name.Name), function) == 0) {
                    return &At<void*>(entry->FirstThunk +
                                      index * static_cast<DWORD>(sizeof(void*)));
                }
            }
        }
        return nullptr;
    }

private:
    template <typename T>
    T& At(DWORD offset) const {
        return *reinterpret_cast<T*>(reinterpret_cast<void*>(base_ + offset));
    }
    const IMAGE_NT_HEADERS& Headers() const {
        const auto& dos = At<IMAGE_DOS_HEADER>(0);
        return At<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos.e_lfanew));
    }
    DWORD Directory(std::size_t index) const {
        return Headers().OptionalHeader.DataDirectory[index].VirtualAddress;
    }
    const IMAGE_IMPORT_DESCRIPTOR* Imports() const {
        return &At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
    }

    BYTE* base_;
};

}  // namespace qv::test
