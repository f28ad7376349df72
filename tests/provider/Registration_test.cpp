// Self-registration in the machine's own hive; the tests remove what is written.
#include <objbase.h>
#include <olectl.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "tests/provider/ProviderTest.h"
#include "tests/support/windows/RegistryDump.h"
#include "tests/support/windows/ReplacedImport.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

const std::wstring root = L"SOFTWARE\\Classes";
const std::wstring instanceId = L"{3F6A2C1E-5B7D-4E90-A1C3-7D2E9F4B8A06}";
const std::wstring eventId = L"{9C4E7B21-0D3A-4F6B-8E15-2A9C6D3F7B40}";
const std::wstring applicationId = L"{5E1D9A37-6C2B-4A8F-9D04-B3F7E2C16A95}";
const std::wstring typesId = L"{B7C0D5E4-18A2-4B6F-9C37-64E1F0A8D2B9}";

/// Returns the entries of one dump that the other lacks.
RegistryDump Without(const RegistryDump& dump, const RegistryDump& other) {
    RegistryDump left;
    std::ranges::set_difference(dump, other, std::inserter(left, left.end()));
    return left;
}

RegistryDump Classes() {
    return DumpOf(HKEY_LOCAL_MACHINE, root);
}

/// Nothing is registered before and after each test. A dump takes seconds.
class RegistrationTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ProviderLibrary::Get().UnregisterServer();
        before = Classes();
    }
    static void TearDownTestSuite() { EXPECT_EQ(Classes(), before); }
    void TearDown() override { library.UnregisterServer(); }

    /// Returns the entries that were added.
    static RegistryDump Added() { return Without(Classes(), before); }

    inline static RegistryDump before;
    const ProviderLibrary& library = ProviderLibrary::Get();
    const std::wstring path = ProviderLibrary::Path();
};

void ExpectClass(RegistryDump& expected, const std::wstring& id, const std::wstring& name,
                 const std::wstring& path) {
    const std::wstring description = L"CQVWMISATA_" + name + L" Object";
    const std::wstring key = root + L"\\CLSID\\" + id;
    const std::wstring versioned = L"QVWMISATA." + name + L".1";
    const std::wstring unversioned = L"QVWMISATA." + name;
    expected.merge(RegistryDump{
        {key, L""},
        {key + L"|", description},
        {key + L"|AppID", applicationId},
        {key + L"\\InprocServer32", L""},
        {key + L"\\InprocServer32|", path},
        {key + L"\\InprocServer32|ThreadingModel", L"Both"},
        {key + L"\\ProgID", L""},
        {key + L"\\ProgID|", versioned},
        {key + L"\\VersionIndependentProgID", L""},
        {key + L"\\VersionIndependentProgID|", unversioned},
        {key + L"\\TypeLib", L""},
        {key + L"\\TypeLib|", typesId},
        {root + L"\\" + versioned, L""},
        {root + L"\\" + versioned + L"|", description},
        {root + L"\\" + versioned + L"\\CLSID", L""},
        {root + L"\\" + versioned + L"\\CLSID|", id},
        {root + L"\\" + unversioned, L""},
        {root + L"\\" + unversioned + L"|", description},
        {root + L"\\" + unversioned + L"\\CLSID", L""},
        {root + L"\\" + unversioned + L"\\CLSID|", id},
        {root + L"\\" + unversioned + L"\\CurVer", L""},
        {root + L"\\" + unversioned + L"\\CurVer|", versioned},
    });
}

std::wstring InLowerCase(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

/// Moves the type library's entries out of a dump.
RegistryDump TakeTypeLibrary(RegistryDump& dump) {
    const auto isTypes = [](const auto& entry) {
        return InLowerCase(entry.first).find(InLowerCase(L"\\TypeLib\\" + typesId)) !=
               std::wstring::npos;
    };
    RegistryDump types;
    std::ranges::copy_if(dump, std::inserter(types, types.end()), isTypes);
    std::erase_if(dump, isTypes);
    return types;
}

std::wstring ValueAt(const RegistryDump& dump, const std::wstring& end) {
    const auto found = std::ranges::find_if(
        dump, [&end](const auto& entry) { return entry.first.ends_with(end); });
    return found == dump.end() ? L"(none)" : found->second;
}

TEST_F(RegistrationTest, WritesBothClassesTheApplicationAndTheTypeLibrary) {
    EXPECT_EQ(library.RegisterServer(), S_OK);
    RegistryDump expected;
    ExpectClass(expected, instanceId, L"InstProv", path);
    ExpectClass(expected, eventId, L"EventProv", path);
    expected.merge(RegistryDump{
        {root + L"\\AppID\\" + applicationId, L""},
        {root + L"\\AppID\\" + applicationId + L"|", L"QVWMISATA"},
        {root + L"\\AppID\\QVWMISATA.dll", L""},
        {root + L"\\AppID\\QVWMISATA.dll|AppID", applicationId},
    });
    RegistryDump added = Added();
    // 32-bit programs see shared keys a second time.
    std::erase_if(
        added, [](const auto& entry) { return entry.first.starts_with(root + L"\\Wow6432Node"); });
    // The platform chooses where and in what form it writes the type library's key.
    const RegistryDump types = TakeTypeLibrary(added);
    EXPECT_EQ(ValueAt(types, L"\\1.0|"), L"QVWMISATA 1.0 Type Library");
    EXPECT_TRUE(ValueAt(types, L"\\1.0\\0\\win64|").ends_with(path));
    EXPECT_THAT(Without(added, expected), IsEmpty());
    EXPECT_THAT(Without(expected, added), IsEmpty());
}

TEST_F(RegistrationTest, LeavesNothingWhenItIsUndone) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    EXPECT_EQ(library.UnregisterServer(), S_OK);
    EXPECT_EQ(Classes(), before);
}

TEST_F(RegistrationTest, CanBeRepeated) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    const RegistryDump once = Classes();
    EXPECT_EQ(library.RegisterServer(), S_OK);
    EXPECT_EQ(Classes(), once);
}

TEST_F(RegistrationTest, CanBeUndoneWhenThereIsNone) {
    EXPECT_EQ(library.UnregisterServer(), S_OK);
    EXPECT_EQ(library.UnregisterServer(), S_OK);
}

TEST_F(RegistrationTest, RepairsARegistrationOfAnotherFile) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    const RegistryDump once = Classes();
    RegSetKeyValueW(HKEY_LOCAL_MACHINE,
                    (root + L"\\CLSID\\" + instanceId + L"\\InprocServer32").c_str(), nullptr,
                    REG_SZ, L"C:\\x", 10);
    ASSERT_EQ(library.RegisterServer(), S_OK);
    EXPECT_EQ(Classes(), once);
}

/// Returns the kind of object that COM creates for a program ID. Each of the two classes has an
/// interface that the other lacks.
std::string MadeBy(const wchar_t* programId) {
    CLSID classId{};
    ComPtr<IWbemProviderInit> made;
    if (FAILED(CLSIDFromProgID(programId, &classId)) ||
        FAILED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made)))) {
        return "nothing";
    }
    ComPtr<IWbemEventProvider> events;
    ComPtr<IWbemServices> instances;
    const bool raisesEvents = IsEqualCLSID(classId, eventProviderId) && SUCCEEDED(made.As(&events));
    const bool hasInstances =
        IsEqualCLSID(classId, instanceProviderId) && SUCCEEDED(made.As(&instances));
    return raisesEvents ? "event provider" : hasInstances ? "instance provider" : "something else";
}

TEST_F(RegistrationTest, LetsBothClassesBeMadeByTheirIdsAndByTheirProgramIds) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    EXPECT_EQ(MadeBy(L"QVWMISATA.InstProv"), "instance provider");
    EXPECT_EQ(MadeBy(L"QVWMISATA.InstProv.1"), "instance provider");
    EXPECT_EQ(MadeBy(L"QVWMISATA.EventProv"), "event provider");
    EXPECT_EQ(MadeBy(L"QVWMISATA.EventProv.1"), "event provider");
}

TEST_F(RegistrationTest, LetsTheTypeLibraryBeLoadedByItsId) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    CLSID id{};
    CLSIDFromString(typesId.c_str(), &id);
    ComPtr<ITypeLib> types;
    EXPECT_EQ(LoadRegTypeLib(id, 1, 0, LOCALE_NEUTRAL, &types), S_OK);
}

TEST_F(RegistrationTest, HasATypeLibraryThatDescribesBothClasses) {
    ComPtr<ITypeLib> types;
    ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &types), S_OK);
    ComPtr<ITypeInfo> described;
    EXPECT_EQ(types->GetTypeInfoOfGuid(instanceProviderId, described.ReleaseAndGetAddressOf()),
              S_OK);
    EXPECT_EQ(types->GetTypeInfoOfGuid(eventProviderId, described.ReleaseAndGetAddressOf()), S_OK);
}

TEST_F(RegistrationTest, IsDoneAndUndoneByRegsvr32) {
    EXPECT_EQ(_wsystem((L"regsvr32 /s \"" + path + L"\"").c_str()), 0);
    const RegistryDump added = Added();
    EXPECT_TRUE(added.contains(root + L"\\CLSID\\" + instanceId));
    EXPECT_TRUE(added.contains(root + L"\\CLSID\\" + eventId));
    EXPECT_EQ(_wsystem((L"regsvr32 /s /u \"" + path + L"\"").c_str()), 0);
    EXPECT_EQ(Classes(), before);
}

TEST_F(RegistrationTest, IsTakenBackWhenTheTypeLibraryCannotBeRegistered) {
    const auto fail = [](LPCOLESTR, REGKIND, ITypeLib** types) -> HRESULT {
        *types = nullptr;
        return TYPE_E_REGISTRYACCESS;
    };
    const ReplacedImport<HRESULT WINAPI(LPCOLESTR, REGKIND, ITypeLib**)> loading(
        library.Module(), "LoadTypeLibEx", +fail);
    EXPECT_EQ(library.RegisterServer(), SELFREG_E_TYPELIB);
    EXPECT_EQ(Classes(), before);
}

int writesLeft = 0;

LSTATUS WINAPI WriteWhileAllowed(HKEY key, LPCWSTR path, LPCWSTR name, DWORD type, const void* data,
                                 DWORD size) {
    return writesLeft-- > 0 ? RegSetKeyValueW(key, path, name, type, data, size)
                            : ERROR_ACCESS_DENIED;
}

TEST_F(RegistrationTest, IsTakenBackWhereverItsWritingFails) {
    const ReplacedImport writing(library.Module(), "RegSetKeyValueW", &WriteWhileAllowed);
    constexpr int allWrites = 26;
    std::vector<HRESULT> results;
    Repeat(allWrites, [&] {
        writesLeft = static_cast<int>(results.size());
        results.push_back(library.RegisterServer());
    });
    EXPECT_THAT(results, ::testing::Each(SELFREG_E_CLASS));
    EXPECT_EQ(Classes(), before);
    writesLeft = allWrites;
    EXPECT_EQ(library.RegisterServer(), S_OK);
}

/// Registers another file of the library in place of this one.
void RegisterElsewhere() {
    for (const std::wstring& id : {instanceId, eventId}) {
        RegSetKeyValueW(HKEY_LOCAL_MACHINE,
                        (root + L"\\CLSID\\" + id + L"\\InprocServer32").c_str(), nullptr, REG_SZ,
                        L"C:\\x", 10);
    }
}

TEST_F(RegistrationTest, LeavesAWorkingOneWhereTheTypeLibraryCannotBeRegistered) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    RegisterElsewhere();
    const RegistryDump working = Classes();
    const auto fail = [](LPCOLESTR, REGKIND, ITypeLib** types) -> HRESULT {
        *types = nullptr;
        return TYPE_E_REGISTRYACCESS;
    };
    const ReplacedImport<HRESULT WINAPI(LPCOLESTR, REGKIND, ITypeLib**)> loading(
        library.Module(), "LoadTypeLibEx", +fail);
    EXPECT_EQ(library.RegisterServer(), SELFREG_E_TYPELIB);
    EXPECT_EQ(Classes(), working);
}

LSTATUS WINAPI WriteAllButOne(HKEY key, LPCWSTR path, LPCWSTR name, DWORD type, const void* data,
                              DWORD size) {
    return writesLeft-- != 0 ? RegSetKeyValueW(key, path, name, type, data, size)
                             : ERROR_ACCESS_DENIED;
}

TEST_F(RegistrationTest, LeavesAWorkingOneWhereverItsWritingFails) {
    ASSERT_EQ(library.RegisterServer(), S_OK);
    RegisterElsewhere();
    const RegistryDump working = Classes();
    const ReplacedImport writing(library.Module(), "RegSetKeyValueW", &WriteAllButOne);
    constexpr int allWrites = 26;
    std::vector<HRESULT> results;
    Repeat(allWrites, [&] {
        writesLeft = static_cast<int>(results.size());
        results.push_back(library.RegisterServer());
    });
    EXPECT_THAT(results, ::testing::Each(SELFREG_E_CLASS));
    EXPECT_EQ(Classes(), working);
}

TEST_F(RegistrationTest, ReportsAClassThatCannotBeRemoved) {
    const auto deny = [](HKEY, LPCWSTR) -> LSTATUS { return ERROR_ACCESS_DENIED; };
    const ReplacedImport<LSTATUS WINAPI(HKEY, LPCWSTR)> removing(library.Module(), "RegDeleteTreeW",
                                                                 +deny);
    EXPECT_EQ(library.UnregisterServer(), SELFREG_E_CLASS);
}

}  // namespace
}  // namespace qv::test
