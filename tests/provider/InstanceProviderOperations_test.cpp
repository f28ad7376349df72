// The operations of IWbemServices besides enumeration and get.
#include <functional>
#include <ostream>

#include "tests/provider/ProviderTest.h"

namespace qv::test {
namespace {

class InstanceProviderOperationsTest : public ProviderTest {
protected:
    InstanceProviderOperationsTest() { BeReady(); }
};

TEST_F(InstanceProviderOperationsTest, RefuseAQueryInWhateverLanguage) {
    EXPECT_EQ(Query(L"WQL", L"SELECT * FROM QV_SATADiskDrive"), windows::Hr(WBEM_E_NOT_SUPPORTED));
    EXPECT_EQ(Query(L"no language", L""), windows::Hr(WBEM_E_NOT_SUPPORTED));
    EXPECT_TRUE(sink->Untouched());
    EXPECT_THAT(source.asked.All(), IsEmpty());
    EXPECT_THAT(Logged(), IsEmpty());
}

TEST_F(InstanceProviderOperationsTest, RefuseUpdatesWithoutACaller) {
    EXPECT_EQ(provider->PutInstanceAsync(nullptr, 0, nullptr, sink.Get()),
              windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE));
    EXPECT_EQ(provider->DeleteInstanceAsync(nullptr, 0, nullptr, sink.Get()),
              windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE));
    EXPECT_TRUE(sink->Untouched());
    EXPECT_THAT(Logged(), IsEmpty());
}

struct Operation {
    const char* name;
    std::function<HRESULT(IWbemServices&, IWbemObjectSink*)> call;
};

std::ostream& operator<<(std::ostream& stream, const Operation& operation) {
    return stream << operation.name;
}

class InstanceProviderOperationsUnsupported : public InstanceProviderOperationsTest,
                                              public ::testing::WithParamInterface<Operation> {};

TEST_P(InstanceProviderOperationsUnsupported, IsRefusedWithoutACaller) {
    EXPECT_EQ(GetParam().call(*provider.Get(), sink.Get()), windows::Hr(WBEM_E_NOT_SUPPORTED));
    EXPECT_TRUE(sink->Untouched());
}

using Services = IWbemServices;
using Sink = IWbemObjectSink*;

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, InstanceProviderOperationsUnsupported, ::testing::Values(
    Operation{"OpenNamespace", [](Services& s, Sink) { return s.OpenNamespace(nullptr, 0, nullptr, nullptr, nullptr); }},
    Operation{"CancelAsyncCall", [](Services& s, Sink sink) { return s.CancelAsyncCall(sink); }},
    Operation{"QueryObjectSink", [](Services& s, Sink) { return s.QueryObjectSink(0, nullptr); }},
    Operation{"GetObject", [](Services& s, Sink) { return s.GetObject(nullptr, 0, nullptr, nullptr, nullptr); }},
    Operation{"PutClass", [](Services& s, Sink) { return s.PutClass(nullptr, 0, nullptr, nullptr); }},
    Operation{"PutClassAsync", [](Services& s, Sink sink) { return s.PutClassAsync(nullptr, 0, nullptr, sink); }},
    Operation{"DeleteClass", [](Services& s, Sink) { return s.DeleteClass(nullptr, 0, nullptr, nullptr); }},
    Operation{"DeleteClassAsync", [](Services& s, Sink sink) { return s.DeleteClassAsync(nullptr, 0, nullptr, sink); }},
    Operation{"CreateClassEnum", [](Services& s, Sink) { return s.CreateClassEnum(nullptr, 0, nullptr, nullptr); }},
    Operation{"CreateClassEnumAsync", [](Services& s, Sink sink) { return s.CreateClassEnumAsync(nullptr, 0, nullptr, sink); }},
    Operation{"PutInstance", [](Services& s, Sink) { return s.PutInstance(nullptr, 0, nullptr, nullptr); }},
    Operation{"DeleteInstance", [](Services& s, Sink) { return s.DeleteInstance(nullptr, 0, nullptr, nullptr); }},
    Operation{"CreateInstanceEnum", [](Services& s, Sink) { return s.CreateInstanceEnum(nullptr, 0, nullptr, nullptr); }},
    Operation{"ExecQuery", [](Services& s, Sink) { return s.ExecQuery(nullptr, nullptr, 0, nullptr, nullptr); }},
    Operation{"ExecNotificationQuery", [](Services& s, Sink) { return s.ExecNotificationQuery(nullptr, nullptr, 0, nullptr, nullptr); }},
    Operation{"ExecNotificationQueryAsync", [](Services& s, Sink sink) { return s.ExecNotificationQueryAsync(nullptr, nullptr, 0, nullptr, sink); }},
    Operation{"ExecMethod", [](Services& s, Sink) { return s.ExecMethod(nullptr, nullptr, 0, nullptr, nullptr, nullptr, nullptr); }},
    Operation{"ExecMethodAsync", [](Services& s, Sink sink) { return s.ExecMethodAsync(nullptr, nullptr, 0, nullptr, nullptr, sink); }}),
    [](const auto& row) { return std::string(row.param.name); });
// clang-format on

}  // namespace
}  // namespace qv::test
