#include "qvsata/hosting/substitutes/ImportPatch.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace qv::test {
namespace {

constexpr DWORD headersAt = 0x40;
constexpr DWORD librariesAt = 0x200;
constexpr DWORD namesAt = 0x300;
constexpr DWORD addressesAt = 0x320;
constexpr DWORD functionAt = 0x340;
constexpr DWORD libraryNameAt = 0x360;

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

    /// Returns whether a patch of "Function" changes the image.
    bool IsPatched() {
        const service::ImportPatch patch(Module(), "Function", [] {});
        return At<service::ImportPatch::Function>(addressesAt) != Original;
    }

private:
    alignas(16) std::array<std::byte, 0x1000> bytes_{};
};

class ImportPatchOfAnImage : public ::testing::Test {
protected:
    Image image;
};

TEST_F(ImportPatchOfAnImage, ReplacesTheFunction) {
    EXPECT_TRUE(image.IsPatched());
    EXPECT_EQ(image.At<service::ImportPatch::Function>(addressesAt), Original);
}

TEST_F(ImportPatchOfAnImage, SkipsALibraryWithoutNames) {
    image.Library().OriginalFirstThunk = 0;
    image.At<IMAGE_IMPORT_DESCRIPTOR>(librariesAt + sizeof(IMAGE_IMPORT_DESCRIPTOR)) = {
        {namesAt}, 0, 0, libraryNameAt, addressesAt};
    image.Directory().Size = 3 * sizeof(IMAGE_IMPORT_DESCRIPTOR);
    EXPECT_TRUE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, LeavesAloneWhatHasNoHeaders) {
    image.Headers().Signature = 0;
    EXPECT_FALSE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, LeavesAloneWhatHasNoImportDirectory) {
    image.Headers().OptionalHeader.NumberOfRvaAndSizes = IMAGE_DIRECTORY_ENTRY_IMPORT;
    EXPECT_FALSE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, ReadsNothingBeyondTheImportDirectory) {
    image.Directory().Size = sizeof(IMAGE_IMPORT_DESCRIPTOR) - 1;
    EXPECT_FALSE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, ReadsNothingBeyondTheImage) {
    image.At<ULONGLONG>(namesAt) = 0x7FFFFFFF;
    EXPECT_FALSE(image.IsPatched());
    image.Library().OriginalFirstThunk = 0x7FFFFFFF;
    EXPECT_FALSE(image.IsPatched());
    image.Directory().VirtualAddress = 0x7FFFFFFF;
    EXPECT_FALSE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, WritesNothingBeyondTheImage) {
    image.Library().FirstThunk = 0x7FFFFFFF;
    EXPECT_FALSE(image.IsPatched());
}

TEST_F(ImportPatchOfAnImage, SkipsFunctionsThatAreImportedByNumber) {
    image.At<ULONGLONG>(namesAt) = IMAGE_ORDINAL_FLAG | functionAt;
    EXPECT_FALSE(image.IsPatched());
}

TEST(ImportPatch, LeavesAModuleThatDoesNotImportTheFunctionAlone) {
    const DWORD process = GetCurrentProcessId();
    const DWORD thread = GetCurrentThreadId();
    const service::ImportPatch patch(GetModuleHandleW(nullptr), "NoSuchFunction", [] { FAIL(); });
    EXPECT_EQ(GetCurrentProcessId(), process);
    EXPECT_EQ(GetCurrentThreadId(), thread);
}

}  // namespace
}  // namespace qv::test
