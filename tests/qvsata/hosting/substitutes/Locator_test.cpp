#include "qvsata/hosting/substitutes/Locator.h"

#include <gtest/gtest.h>

#include "qvsata/hosting/substitutes/ServedClass.h"
#include "qvsata/service/RecordedMachine.h"
#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

/// The locator that replaces the system's, as the provider uses it.
class LocatorTest : public testing::Test {
protected:
    static std::shared_ptr<const service::RecordedHost> Host() {
        service::ComputerNames names;
        names.server = "REC";
        auto host = std::make_shared<service::RecordedHost>(names);
        host->AddRow("root\\CIMv2", "Win32_DiskDrive",
                     {{"DeviceID", "D0"}, {"Index", std::int64_t{0}}, {"Note", {}}});
        host->FailClass("root\\CIMv2", "Win32_Broken");
        return host;
    }

    static HRESULT Connect(const wchar_t* nameSpace, ComPtr<IWbemServices>& services) {
        ComPtr<IWbemLocator> locator;
        EXPECT_EQ(CoCreateInstance(CLSID_WbemAdministrativeLocator, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_PPV_ARGS(&locator)),
                  S_OK);
        return locator->ConnectServer(Bstr(nameSpace).Get(), nullptr, nullptr, nullptr, 0, nullptr,
                                      nullptr, &services);
    }

    HRESULT Query(const wchar_t* text, ComPtr<IWbemClassObject>& first,
                  const wchar_t* language = L"WQL") {
        ComPtr<IWbemServices> services;
        EXPECT_EQ(Connect(L"root\\CIMv2", services), S_OK);
        ComPtr<IEnumWbemClassObject> objects;
        const HRESULT result =
            services->ExecQuery(Bstr(language).Get(), Bstr(text).Get(), 0, nullptr, &objects);
        ULONG returned = 0;
        if (SUCCEEDED(result)) {
            objects->Next(0, 1, &first, &returned);
        }
        return result;
    }

    TestNamespace names_;
    service::ServedClass registration_{
        CLSID_WbemAdministrativeLocator, [this](REFIID iid, void** object) {
            return windows::MakeObject<service::Locator>(
                       service::WithPublished(names_.names, service::ConnectRecorded(Host())))
                ->QueryInterface(iid, object);
        }};
};

TEST_F(LocatorTest, ConnectsToTheProvidersNamespace) {
    ComPtr<IWbemServices> services;
    ASSERT_EQ(Connect(L"\\\\.\\ROOT\\qvq", services), S_OK);
    ComPtr<IWbemClassObject> type;
    EXPECT_EQ(services->GetObject(Bstr(L"T_Disk").Get(), 0, nullptr, &type, nullptr), S_OK);
}

TEST_F(LocatorTest, FailsForANamespaceThatWasNotRecorded) {
    ComPtr<IWbemServices> services;
    EXPECT_EQ(Connect(L"root\\wmi", services), Hr(WBEM_E_INVALID_NAMESPACE));
}

TEST_F(LocatorTest, GivesRecordedRowsWithTheTypesOfTheManagementService) {
    ComPtr<IWbemClassObject> row;
    ASSERT_EQ(Query(L"SELECT * FROM Win32_DiskDrive", row), S_OK);
    Variant value;
    EXPECT_EQ(row->Get(L"index", 0, value.Receive(), nullptr, nullptr), S_OK);
    EXPECT_EQ(V_VT(&value.Get()), VT_I4);
    EXPECT_EQ(row->Get(L"Note", 0, value.Receive(), nullptr, nullptr), S_OK);
    EXPECT_EQ(V_VT(&value.Get()), VT_NULL);
    EXPECT_EQ(row->Get(L"Missing", 0, nullptr, nullptr, nullptr), Hr(WBEM_E_NOT_FOUND));
    EXPECT_EQ(ReadText(*row.Get(), "__PATH"),
              "\\\\REC\\root\\CIMv2:Win32_DiskDrive.DeviceID=\"D0\"");
}

TEST_F(LocatorTest, RefusesToChangeARecordedRow) {
    ComPtr<IWbemClassObject> row;
    ASSERT_EQ(Query(L"SELECT * FROM Win32_DiskDrive", row), S_OK);
    EXPECT_EQ(row->Put(L"Index", 0, nullptr, 0), Hr(WBEM_E_NOT_SUPPORTED));
}

TEST_F(LocatorTest, GivesTheStatusesOfRefusedQueries) {
    ComPtr<IWbemClassObject> row;
    EXPECT_EQ(Query(L"SELECT * FROM Win32_Nothing", row), Hr(WBEM_E_INVALID_CLASS));
    EXPECT_EQ(Query(L"SELECT * FROM Win32_Broken", row), Hr(WBEM_E_FAILED));
    EXPECT_EQ(Query(L"SELECT", row), Hr(WBEM_E_INVALID_QUERY));
    EXPECT_EQ(Query(L"SELECT * FROM Win32_DiskDrive", row, L"SQL"), Hr(WBEM_E_INVALID_QUERY_TYPE));
}

}  // namespace
}  // namespace qv::test
