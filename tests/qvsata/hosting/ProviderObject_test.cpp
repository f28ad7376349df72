#include "qvsata/hosting/ProviderObject.h"

#include <gtest/gtest.h>

#include <new>

#include "platform/Status.h"
#include "tests/qvsata/hosting/FakeProvider.h"

namespace qv::test {
namespace {

TEST(ProviderObject, PrefersTheStatusOfTheSink) {
    const TestNamespace names;
    names.fake->enumerate = [](IWbemServices&, const BSTR, IWbemObjectSink* sink) {
        sink->SetStatus(WBEM_STATUS_COMPLETE, Hr(WBEM_E_ACCESS_DENIED), nullptr, nullptr);
        return S_OK;
    };
    const auto answer = names.provider->Enumerate("T_Disk");
    EXPECT_EQ(answer.Status(), Hr(WBEM_E_ACCESS_DENIED));
    EXPECT_EQ(answer.completions, 1U);
}

TEST(ProviderObject, TakesSuccessWithoutAStatusForAFailure) {
    const TestNamespace names;
    names.fake->enumerate = [](IWbemServices&, const BSTR, IWbemObjectSink*) { return S_OK; };
    EXPECT_EQ(names.provider->Enumerate("T_Disk").Status(), Hr(WBEM_E_PROVIDER_FAILURE));
}

TEST(ProviderObject, MakesAnExceptionTheStatusOfTheRequest) {
    const TestNamespace names;
    names.fake->enumerate = [](IWbemServices&, const BSTR, IWbemObjectSink*) -> HRESULT {
        throw RequestError(Status::unspecifiedFailure);
    };
    EXPECT_EQ(names.provider->Enumerate("T_Disk").Status(), E_FAIL);
    names.fake->enumerate = [](IWbemServices&, const BSTR, IWbemObjectSink*) -> HRESULT {
        throw std::bad_alloc();
    };
    EXPECT_EQ(names.provider->Enumerate("T_Disk").Status(), E_OUTOFMEMORY);
}

TEST(ProviderObject, CallsOnAThreadOfItsOwnInTheMultithreadedApartment) {
    const TestNamespace names;
    DWORD thread = 0;
    APTTYPE apartment = APTTYPE_CURRENT;
    names.fake->enumerate = [&](IWbemServices&, const BSTR, IWbemObjectSink* sink) {
        thread = GetCurrentThreadId();
        APTTYPEQUALIFIER qualifier{};
        CoGetApartmentType(&apartment, &qualifier);
        return sink->SetStatus(WBEM_STATUS_COMPLETE, S_OK, nullptr, nullptr);
    };
    names.provider->Enumerate("T_Disk");
    EXPECT_NE(thread, GetCurrentThreadId());
    EXPECT_EQ(apartment, APTTYPE_MTA);
}

TEST(ProviderObject, FailsWhenTheProviderReportsAFailedInitialisation) {
    const auto fake = windows::MakeObject<FakeProvider>();
    fake->initialised = Hr(WBEM_E_FAILED);
    const TestNamespace names;
    EXPECT_THROW(service::ProviderObject(ComPtr<IUnknown>(static_cast<IWbemServices*>(fake.Get())),
                                         L"root\\QVQ", *names.services.Get()),
                 RequestError);
}

}  // namespace
}  // namespace qv::test
