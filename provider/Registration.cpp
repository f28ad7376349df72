#include "provider/Registration.h"

#include <oleauto.h>
#include <olectl.h>

#include <array>
#include <optional>
#include <string>

#include "platform/windows/ComObject.h"
#include "platform/windows/RegistryKey.h"
#include "provider/Module.h"
#include "provider/public/ClassIds.h"

namespace qv::provider {
namespace {

constexpr const wchar_t* classesKey = L"SOFTWARE\\Classes\\";
constexpr const wchar_t* applicationId = L"{5E1D9A37-6C2B-4A8F-9D04-B3F7E2C16A95}";

struct RegisteredClass {
    const wchar_t* classId;
    const wchar_t* description;
    const wchar_t* versionedProgramId;
    const wchar_t* programId;
};

constexpr std::array registeredClasses{
    RegisteredClass{instanceProviderText, L"CQVWMISATA_InstProv Object", L"QVWMISATA.InstProv.1",
                    L"QVWMISATA.InstProv"},
    RegisteredClass{eventProviderText, L"CQVWMISATA_EventProv Object", L"QVWMISATA.EventProv.1",
                    L"QVWMISATA.EventProv"},
};

/// Writes a text value, creating the key; a null name is the key's default value.
bool WriteText(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (classesKey + key).c_str(), name, REG_SZ,
                           text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) ==
           ERROR_SUCCESS;
}

bool RemoveTree(const std::wstring& key) {
    const LSTATUS status = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (classesKey + key).c_str());
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
}

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(ModuleInstance(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::wstring ClassKey(const RegisteredClass& one) {
    return std::wstring(L"CLSID\\") + one.classId;
}

std::wstring ServerKey(const RegisteredClass& one) {
    return ClassKey(one) + L"\\InprocServer32";
}

bool WriteClass(const RegisteredClass& one, const std::wstring& modulePath) {
    const std::wstring classKey = ClassKey(one);
    const std::wstring versioned = one.versionedProgramId;
    const std::wstring unversioned = one.programId;
    return WriteText(classKey, nullptr, one.description) &&
           WriteText(classKey, L"AppID", applicationId) &&
           WriteText(ServerKey(one), nullptr, modulePath) &&
           WriteText(ServerKey(one), L"ThreadingModel", L"Both") &&
           WriteText(classKey + L"\\ProgID", nullptr, versioned) &&
           WriteText(classKey + L"\\VersionIndependentProgID", nullptr, unversioned) &&
           WriteText(classKey + L"\\TypeLib", nullptr, typeLibraryText) &&
           WriteText(versioned, nullptr, one.description) &&
           WriteText(versioned + L"\\CLSID", nullptr, one.classId) &&
           WriteText(unversioned, nullptr, one.description) &&
           WriteText(unversioned + L"\\CLSID", nullptr, one.classId) &&
           WriteText(unversioned + L"\\CurVer", nullptr, versioned);
}

bool RemoveClass(const RegisteredClass& one) {
    const bool classGone = RemoveTree(ClassKey(one));
    const bool versionedGone = RemoveTree(one.versionedProgramId);
    return RemoveTree(one.programId) && classGone && versionedGone;
}

/// The file of each registered class.
using ModulePaths = std::array<std::wstring, registeredClasses.size()>;

bool WriteClasses(const ModulePaths& modulePaths) {
    const std::wstring applicationKey = std::wstring(L"AppID\\") + applicationId;
    return WriteText(applicationKey, nullptr, L"QVWMISATA") &&
           WriteText(L"AppID\\QVWMISATA.dll", L"AppID", applicationId) &&
           WriteClass(registeredClasses[0], modulePaths[0]) &&
           WriteClass(registeredClasses[1], modulePaths[1]);
}

/// Returns the files of a registration; nothing if not all classes are registered.
std::optional<ModulePaths> RegisteredPaths() {
    ModulePaths paths;
    for (std::size_t index = 0; index < paths.size(); ++index) {
        const std::wstring key = classesKey + ServerKey(registeredClasses[index]);
        const auto opened = windows::RegistryKey::OpenLocalMachine(key.c_str());
        if (!opened || opened.ReadText(nullptr, paths[index]) != ERROR_SUCCESS) {
            return std::nullopt;
        }
    }
    return paths;
}

bool RegisterTypeLibrary(const std::wstring& modulePath) {
    windows::ComPtr<ITypeLib> library;
    return SUCCEEDED(LoadTypeLibEx(modulePath.c_str(), REGKIND_REGISTER, &library));
}

/// Undoes a registration that failed. All entries but the paths are the same for every file.
void TakeBack(const std::optional<ModulePaths>& before) {
    if (!before) {
        UnregisterLibrary();
        return;
    }
    WriteClasses(*before);
    RegisterTypeLibrary(before->front());
}

}  // namespace

HRESULT RegisterLibrary() {
    const std::optional<ModulePaths> before = RegisteredPaths();
    const std::wstring modulePath = ModulePath();
    if (modulePath.empty() || !WriteClasses({modulePath, modulePath})) {
        TakeBack(before);
        return SELFREG_E_CLASS;
    }
    if (!RegisterTypeLibrary(modulePath)) {
        TakeBack(before);
        return SELFREG_E_TYPELIB;
    }
    return S_OK;
}

HRESULT UnregisterLibrary() {
    // Informs the platform; the tree is removed in any case, also if only parts of it are left.
    UnRegisterTypeLib(typeLibraryId, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
    const bool typeLibraryGone = RemoveTree(std::wstring(L"TypeLib\\") + typeLibraryText);
    bool classesGone = RemoveTree(std::wstring(L"AppID\\") + applicationId);
    classesGone = RemoveTree(L"AppID\\QVWMISATA.dll") && classesGone;
    for (const RegisteredClass& one : registeredClasses) {
        classesGone = RemoveClass(one) && classesGone;
    }
    if (!classesGone) {
        return SELFREG_E_CLASS;
    }
    return typeLibraryGone ? S_OK : SELFREG_E_TYPELIB;
}

}  // namespace qv::provider
