#include "qvsata/registration/windows/RegisteredClass.h"

#include "platform/windows/RegistryKey.h"

namespace qv::tool {
namespace {

std::optional<std::wstring> TextAt(const windows::RegistryKey& key, const wchar_t* name) {
    std::wstring text;
    return key.ReadText(name, text) == ERROR_SUCCESS ? std::optional(text) : std::nullopt;
}

}  // namespace

RegisteredClass ReadRegisteredClass(const wchar_t* classId) {
    const std::wstring path = std::wstring(L"SOFTWARE\\Classes\\CLSID\\") + classId;
    const auto key = windows::RegistryKey::OpenLocalMachine((path + L"\\InprocServer32").c_str());
    return key ? RegisteredClass{TextAt(key, nullptr), TextAt(key, L"ThreadingModel")}
               : RegisteredClass{};
}

}  // namespace qv::tool
