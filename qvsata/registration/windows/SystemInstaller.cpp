#include <windows.h>

#include <olectl.h>

#include <array>
#include <system_error>

#include "platform/windows/Text.h"
#include "provider/public/ClassIds.h"
#include "qvsata/cim/StatusCodes.h"
#include "qvsata/hosting/ComApartment.h"
#include "qvsata/hosting/ProviderLibrary.h"
#include "qvsata/registration/Installer.h"
#include "qvsata/registration/windows/RegisteredClass.h"
#include "qvsata/registration/windows/RunProgram.h"

namespace qv::tool {
namespace {

using std::filesystem::path;

std::string MeaningOf(HRESULT result) {
    switch (result) {
        case SELFREG_E_CLASS:
            return "SELFREG_E_CLASS (0x80040201): the keys of its classes cannot be changed";
        case SELFREG_E_TYPELIB:
            return "SELFREG_E_TYPELIB (0x80040200): the keys of its type library cannot be changed";
        default:
            return service::StatusName(Status{static_cast<std::uint32_t>(result)});
    }
}

/// Calls an entry point of a library without arguments. Returns why it failed.
std::string CallEntryPoint(const path& file, const char* name) {
    try {
        const service::ComApartment apartment;
        const service::ProviderLibrary library(file);
        const auto call = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
            reinterpret_cast<void*>(GetProcAddress(library.Module(), name)));
        const HRESULT result = call == nullptr ? HRESULT_FROM_WIN32(GetLastError()) : call();
        return SUCCEEDED(result) ? std::string() : name + (": " + MeaningOf(result));
    } catch (const std::system_error& error) {
        return error.what();
    }
}

path SystemFolder() {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return folder.data();
}

class SystemInstaller final : public Installer {
public:
    bool IsElevated() const override {
        std::array<BYTE, SECURITY_MAX_SID_SIZE> administrators{};
        auto size = static_cast<DWORD>(administrators.size());
        BOOL isMember = FALSE;
        return CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators.data(),
                                  &size) &&
               CheckTokenMembership(nullptr, administrators.data(), &isMember) && isMember;
    }

    path RegisteredLibrary() const override {
        const auto instances = ReadRegisteredClass(provider::instanceProviderText).library;
        const auto events = ReadRegisteredClass(provider::eventProviderText).library;
        std::error_code ignored;
        const bool isWhole =
            instances && instances == events && std::filesystem::exists(*instances, ignored);
        return isWhole ? path(*instances) : path();
    }

    std::string Register(const path& library) override {
        return CallEntryPoint(library, "DllRegisterServer");
    }
    std::string Unregister(const path& library) override {
        return CallEntryPoint(library, "DllUnregisterServer");
    }

    Compilation CompileMof(const path& file) override {
        // Never one that the search path names.
        return RunProgram(SystemFolder() / L"wbem" / L"mofcomp.exe", file);
    }
};

}  // namespace

std::unique_ptr<Installer> InstallerOfThisMachine() {
    return std::make_unique<SystemInstaller>();
}

}  // namespace qv::tool
