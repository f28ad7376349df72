#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wbemprov.h>

#include <string>
#include <vector>

#include "platform/Status.h"
#include "platform/windows/Bstr.h"
#include "platform/windows/ComObject.h"
#include "tests/provider/InitialisedTest.h"
#include "tests/provider/LibraryLog.h"
#include "tests/support/windows/PathParserStandIn.h"
#include "tests/support/windows/ProviderLibrary.h"
#include "tests/support/windows/SinkStandIn.h"
#include "tests/support/windows/SourceStandIn.h"

namespace qv::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

inline constexpr const wchar_t* controllersQuery = L"SELECT * FROM Win32_IDEController";
inline constexpr const wchar_t* disksQuery = L"SELECT * FROM Win32_DiskDrive";
inline constexpr const wchar_t* mediaQuery = L"SELECT * FROM Win32_PhysicalMedia";
inline constexpr const wchar_t* definitionQuery =
    LR"(SELECT * FROM meta_class WHERE __CLASS = "QV_WinComputerSystem")";

/// A Win32_IDEController row of a port controller; `device` is its device number and caption.
inline Cells ControllerRow(const std::wstring& device) {
    return {{L"DeviceID", L"PCI\\VEN_8086&DEV_" + device + L"&REV_01\\3&1"}, {L"Caption", device}};
}

inline std::wstring LocationName(const std::wstring& device) {
    return L"PCI&VEN_8086&DEV_" + device + L"&REV_01&3&1";
}

/// Returns the path of the controller's QV_SATAControllerLocation, with the name of LocationName.
inline std::wstring LocationPath(const std::wstring& name, const std::wstring& device) {
    return L"QV_SATAControllerLocation.Name=\"" + name + L"\",PhysicalPosition=\"" + device +
           L" with Device ID: " + device + L"\"";
}

/// The real library between stand-ins for the management service. Checks after each test that the
/// thread has its own identity and that the library could be unloaded.
class ProviderTest : public InitialisedTest {
protected:
    ProviderTest() {
        library.Make(instanceProviderId).As(&init);
        init.As(&provider);
    }

    void TearDown() override {
        EXPECT_TRUE(ThreadIsItsOwn());
        init.Reset();
        provider.Reset();
        sink = windows::MakeObject<SinkStandIn>();
        EXPECT_EQ(library.CanUnloadNow(), S_OK);
        EXPECT_EQ(InstanceStandIn::Living(), 0);
    }

    /// Initialises the provider and clears the stand-ins' records.
    void BeReady() {
        ASSERT_EQ(Initialize(), S_OK);
        caller->calls.clear();
        source.Forget();
        parsers.calls.Clear();
        lines = LibraryLog::LineCount();
    }

    HRESULT Enumerate(const std::wstring& className) { return Enumerate(className, sink.Get()); }
    HRESULT Enumerate(const std::wstring& className, IWbemObjectSink* to) {
        const CallContext call(*caller.Get());
        return provider->CreateInstanceEnumAsync(windows::Bstr(className).Get(), 0, context.Get(),
                                                 to);
    }
    HRESULT Get(const std::wstring& path) { return Get(path, sink.Get()); }
    HRESULT Get(const std::wstring& path, IWbemObjectSink* to) {
        const CallContext call(*caller.Get());
        return provider->GetObjectAsync(windows::Bstr(path).Get(), 0, context.Get(), to);
    }
    HRESULT Query(const std::wstring& language, const std::wstring& text) {
        const CallContext call(*caller.Get());
        return provider->ExecQueryAsync(windows::Bstr(language).Get(), windows::Bstr(text).Get(), 0,
                                        context.Get(), sink.Get());
    }

    /// Returns what the library logged since BeReady.
    std::vector<std::wstring> Logged() const { return LibraryLog::LinesFrom(lines); }

    const ProviderLibrary& library = ProviderLibrary::Get();
    std::size_t lines = LibraryLog::LineCount();
    SourceStandIn source;
    PathParserStandIn parsers;
    ComPtr<SinkStandIn> sink = windows::MakeObject<SinkStandIn>();
    ComPtr<IWbemServices> provider;
};

}  // namespace qv::test
