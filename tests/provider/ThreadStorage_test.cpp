// What the library leaves in a process that loads and unloads it again and again.
#include <gtest/gtest.h>
#include <wbemprov.h>
#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "platform/Status.h"
#include "platform/windows/Bstr.h"
#include "tests/provider/InitialisedTest.h"
#include "tests/support/windows/ProviderLibrary.h"
#include "tests/support/windows/SinkStandIn.h"
#include "tests/support/windows/SourceStandIn.h"

namespace qv::test {
namespace {

class ThreadStorageTest : public InitialisedTest {
protected:
    ThreadStorageTest() {
        source.Answer(L"SELECT * FROM Win32_DiskDrive",
                      {{{L"InterfaceType", L"IDE"}, {L"DeviceID", nullptr}}});
        source.Answer(L"SELECT * FROM Win32_PhysicalMedia", {{{L"Tag", L"x"}}});
    }

    /// Loads the library, lets it raise an exception and unloads it. Returns whether it raised one.
    bool RaiseOnce() {
        FreshLibrary library;
        library.Make(instanceProviderId).As(&init);
        Initialize();
        ComPtr<IWbemServices> provider;
        init.As(&provider);
        init.Reset();
        const auto sink = windows::MakeObject<SinkStandIn>();
        const CallContext call(*caller.Get());
        try {
            provider->CreateInstanceEnumAsync(windows::Bstr(L"QV_SATADiskDrive").Get(), 0,
                                              context.Get(), sink.Get());
        } catch (const RequestError&) {
            return true;
        }
        return false;
    }

    /// Returns how many thread storage indexes the process can still allocate.
    static std::size_t FreeIndexes() {
        std::vector<DWORD> indexes;
        for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) {
            indexes.push_back(index);
        }
        std::ranges::for_each(indexes, TlsFree);
        return indexes.size();
    }

    SourceStandIn source;
};

TEST_F(ThreadStorageTest, IsFreedWhenTheLibraryIsUnloaded) {
    ASSERT_TRUE(RaiseOnce());  // the system's libraries allocate here what they keep
    const std::size_t before = FreeIndexes();

    EXPECT_TRUE(RaiseOnce());
    EXPECT_TRUE(RaiseOnce());

    EXPECT_EQ(FreeIndexes(), before);
}

}  // namespace
}  // namespace qv::test
