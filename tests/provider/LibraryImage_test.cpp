// The library as a file: exports, imports and resources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>
#include <winver.h>

#include <string>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "tests/support/windows/LoadedImage.h"
#include "tests/support/windows/ProviderLibrary.h"

namespace qv::test {
namespace {

using ::testing::ElementsAre;
using windows::ComPtr;

const ProviderLibrary& library = ProviderLibrary::Get();
const LoadedImage image(library.Module());

TEST(LibraryImage, ExportsTheFiveEntryPointsAndNothingElse) {
    EXPECT_THAT(image.ExportedNames(),
                ElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllMain", "DllRegisterServer",
                            "DllUnregisterServer"));
    EXPECT_EQ(image.ExportCount(), 5U);
}

TEST(LibraryImage, IsLoadedAnywhereInAWideAddressSpaceAndRunsNoData) {
    constexpr WORD wanted = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE |
                            IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA |
                            IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
    EXPECT_EQ(image.Characteristics() & wanted, wanted);
}

TEST(LibraryImage, NeedsModulesOfTheSystemOnly) {
    EXPECT_THAT(image.ImportedModules(),
                ::testing::IsSubsetOf({"advapi32.dll", "iphlpapi.dll", "kernel32.dll", "msvcrt.dll",
                                       "ole32.dll", "oleaut32.dll", "user32.dll", "ws2_32.dll"}));
}

std::wstring VersionText(const wchar_t* name) {
    const std::wstring path = ProviderLibrary::Path();
    DWORD ignored = 0;
    std::vector<BYTE> data(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    wchar_t* text = nullptr;
    UINT length = 0;
    if (data.empty() ||
        !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(data.size()), data.data()) ||
        !VerQueryValueW(data.data(), (std::wstring(L"\\StringFileInfo\\040904B0\\") + name).c_str(),
                        reinterpret_cast<void**>(&text), &length)) {
        return L"(none)";
    }
    return text;
}

TEST(LibraryImage, SaysInItsVersionWhatItIsAndThatItRegistersItself) {
    EXPECT_EQ(VersionText(L"OleSelfRegister"), L"");
    EXPECT_EQ(VersionText(L"FileDescription"), L"SATA and IDE storage management provider");
    EXPECT_EQ(VersionText(L"OriginalFilename"), L"QVWMISATA.dll");
    EXPECT_EQ(VersionText(L"FileVersion"), L"1.0.0.0");
}

std::wstring HelpText(ITypeLib& types, INT index) {
    windows::Bstr text;
    types.GetDocumentation(index, nullptr, text.Receive(), nullptr, nullptr);
    return std::wstring(text.View());
}

/// Returns the kind of a type in a library; TKIND_MAX if it is missing.
TYPEKIND KindOf(ITypeLib& types, const CLSID& id) {
    ComPtr<ITypeInfo> info;
    TYPEATTR* attributes = nullptr;
    if (FAILED(types.GetTypeInfoOfGuid(id, &info)) || FAILED(info->GetTypeAttr(&attributes))) {
        return TKIND_MAX;
    }
    const TYPEKIND kind = attributes->typekind;
    info->ReleaseTypeAttr(attributes);
    return kind;
}

TEST(LibraryImage, CarriesATypeLibraryOfBothClasses) {
    ComPtr<ITypeLib> types;
    ASSERT_EQ(LoadTypeLibEx(ProviderLibrary::Path().c_str(), REGKIND_NONE, &types), S_OK);
    EXPECT_EQ(HelpText(*types.Get(), -1), L"QVWMISATA 1.0 Type Library");
    EXPECT_EQ(KindOf(*types.Get(), instanceProviderId), TKIND_COCLASS);
    EXPECT_EQ(KindOf(*types.Get(), eventProviderId), TKIND_COCLASS);
}

}  // namespace
}  // namespace qv::test
