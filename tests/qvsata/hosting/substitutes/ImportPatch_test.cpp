#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string>

#include "platform/Status.h"
#include "tests/support/windows/ReplacedImport.h"

namespace qv::test {
namespace {

using testing::HasSubstr;

constexpr DWORD headersAt = 0x40;
constexpr DWORD librariesAt = 0x200;
constexpr DWORD namesAt = 0x300;
constexpr DWORD addressesAt = 0x320;
constexpr DWORD functionAt = 0x340;
constexpr DWORD libraryNameAt = 0x360;
constexpr DWORD laterAddressesAt = 0x380;
constexpr auto notImported = ": does not import Function by name";

void Original() {}

/// An image in memory that imports "Function" from one library. The tests damage it.
class Image {
public:
    Image() {
        auto& dos = At<IMAGE_DOS_HEADER>(0);
        dos.e_magic = IMAGE_DOS_SIGNATURE;
        dos.e_lfanew = headersAt;
        Headers().Signature = IMAGE_NT_SIGNATURE;
        Headers().OptionalHeader.SizeOfImage = static_cast<DWORD>(bytes_.size());
        Headers().OptionalHeader.NumberOfRvaAndSizes = IMAGE_NUMBEROF_DIRECTORY_ENTRIES;
        Directory() = {librariesAt, 2 * sizeof(IMAGE_IMPORT_DESCRIPTOR)};
        Library().OriginalFirstThunk = namesAt;
        Library().FirstThunk = addressesAt;
        Library().Name = libraryNameAt;
        At<ULONGLONG>(namesAt) = functionAt;
        std::strcpy(&At<char>(functionAt + sizeof(WORD)), "Function");
        At<service::ImportPatch::Function>(addressesAt) = Original;
    }

    HMODULE Module() { return reinterpret_cast<HMODULE>(bytes_.data()); }

    template <typename T>
    T& At(DWORD offset) {
        return *reinterpret_cast<T*>(bytes_.data() + offset);
    }
    IMAGE_NT_HEADERS& Headers() { return At<IMAGE_NT_HEADERS>(headersAt); }
    IMAGE_DATA_DIRECTORY& Directory() {
        return Headers().OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    }
    IMAGE_IMPORT_DESCRIPTOR& Library() { return At<IMAGE_IMPORT_DESCRIPTOR>(librariesAt); }

    /// Patches "Function" and returns why that is refused; empty if it changes the image.
    std::string Refusal() {
        try {
            const service::ImportPatch patch(Module(), "Function", [] {});
            return At<service::ImportPatch::Function>(addressesAt) == Original ? "no change" : "";
        } catch (const std::runtime_error& error) {
            return error.what();
        }
    }

private:
    alignas(16) std::array<std::byte, 0x1000> bytes_{};
};

class ImportPatchOfAnImage : public ::testing::Test {
protected:
    Image image;
};

TEST_F(ImportPatchOfAnImage, ReplacesTheFunction) {
    EXPECT_EQ(image.Refusal(), "");
    EXPECT_EQ(image.At<service::ImportPatch::Function>(addressesAt), Original);
}

TEST_F(ImportPatchOfAnImage, RefusesALibraryWithoutNamesBesideOneWithThem) {
    image.At<IMAGE_IMPORT_DESCRIPTOR>(librariesAt + sizeof(IMAGE_IMPORT_DESCRIPTOR)) = {
        {0}, 0, 0, libraryNameAt, addressesAt};
    image.Directory().Size = 3 * sizeof(IMAGE_IMPORT_DESCRIPTOR);
    EXPECT_THAT(image.Refusal(), HasSubstr(": has imports without names, so Function cannot be"));
}

TEST_F(ImportPatchOfAnImage, RefusesWhatHasNoHeaders) {
    image.Headers().Signature = 0;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

TEST_F(ImportPatchOfAnImage, RefusesWhatHasNoImportDirectory) {
    image.Headers().OptionalHeader.NumberOfRvaAndSizes = IMAGE_DIRECTORY_ENTRY_IMPORT;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

TEST_F(ImportPatchOfAnImage, ReadsNothingBeyondTheImportDirectory) {
    image.Directory().Size = sizeof(IMAGE_IMPORT_DESCRIPTOR) - 1;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

TEST_F(ImportPatchOfAnImage, ReadsNothingBeyondTheImage) {
    image.At<ULONGLONG>(namesAt) = 0x7FFFFFFF;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
    image.Library().OriginalFirstThunk = 0x7FFFFFFF;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
    image.Directory().VirtualAddress = 0x7FFFFFFF;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

TEST_F(ImportPatchOfAnImage, WritesNothingBeyondTheImage) {
    image.Library().FirstThunk = 0x7FFFFFFF;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

TEST_F(ImportPatchOfAnImage, RefusesAFunctionThatIsImportedByNumberOnly) {
    image.At<ULONGLONG>(namesAt) = IMAGE_ORDINAL_FLAG | functionAt;
    EXPECT_THAT(image.Refusal(), HasSubstr(notImported));
}

/// An address whose protection the system refuses to change: it passes the replaced function
/// nothing that leads to an object.
void* guarded = nullptr;

BOOL WINAPI ProtectUnlessGuarded(LPVOID address, SIZE_T size, DWORD wanted, PDWORD before) {
    SetLastError(ERROR_ACCESS_DENIED);
    return address == guarded
               ? FALSE
               : VirtualProtectEx(GetCurrentProcess(), address, size, wanted, before);
}

TEST_F(ImportPatchOfAnImage, IsUndoneWhereALaterTableCannotBeWritten) {
    image.At<IMAGE_IMPORT_DESCRIPTOR>(librariesAt + sizeof(IMAGE_IMPORT_DESCRIPTOR)) = {
        {namesAt}, 0, 0, libraryNameAt, laterAddressesAt};
    image.Directory().Size = 3 * sizeof(IMAGE_IMPORT_DESCRIPTOR);
    guarded = &image.At<service::ImportPatch::Function>(laterAddressesAt);
    const ReplacedImport protect(GetModuleHandleW(nullptr), "VirtualProtect",
                                 &ProtectUnlessGuarded);
    EXPECT_THROW(service::ImportPatch(image.Module(), "Function", [] {}), RequestError);
    EXPECT_EQ(image.At<service::ImportPatch::Function>(addressesAt), Original);
}

TEST(ImportPatch, NamesTheModuleThatDoesNotImportTheFunction) {
    EXPECT_THAT([] { service::ImportPatch(GetModuleHandleW(nullptr), "NoSuchFunction", [] {}); },
                testing::ThrowsMessage<std::runtime_error>(testing::EndsWith(
                    "hosting_tests.exe: does not import NoSuchFunction by name, so it cannot be "
                    "replaced in it")));
}

}  // namespace
}  // namespace qv::test
