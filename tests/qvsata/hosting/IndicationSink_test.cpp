#include "qvsata/hosting/IndicationSink.h"

#include <gtest/gtest.h>

#include "platform/windows/WbemStatus.h"
#include "qvsata/hosting/objects/ObjectFace.h"
#include "tests/qvsata/hosting/FakeProvider.h"
#include "tests/support/windows/Threads.h"

namespace qv::test {
namespace {

class IndicationSinkTest : public testing::Test {
protected:
    HRESULT Deliver(const ComPtr<IWbemClassObject>& object) {
        IWbemClassObject* objects[] = {object.Get()};
        return sink_->Indicate(1, objects);
    }

    static service::ObjectPtr Behind(const ComPtr<IWbemClassObject>& object) {
        return service::ObjectFace::Behind(*object.Get());
    }

    TestNamespace namespace_;
    ComPtr<service::IndicationSink> sink_ = windows::MakeObject<service::IndicationSink>();
};

TEST_F(IndicationSinkTest, GivesWhatWasDeliveredInItsOrderOnce) {
    const auto first = namespace_.Spawn(L"T_Disk");
    const auto second = namespace_.Spawn(L"T_Disk");
    EXPECT_EQ(Deliver(first), S_OK);
    EXPECT_EQ(Deliver(second), S_OK);
    EXPECT_EQ(sink_->Take(), (service::ObjectList{Behind(first), Behind(second)}));
    EXPECT_TRUE(sink_->Take().empty());
}

TEST_F(IndicationSinkTest, RefusesWhatIsNoObject) {
    EXPECT_EQ(Deliver(nullptr), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(sink_->Indicate(1, nullptr), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_EQ(sink_->Indicate(-1, nullptr), Hr(WBEM_E_INVALID_PARAMETER));
    EXPECT_TRUE(sink_->Take().empty());
}

TEST_F(IndicationSinkTest, RefusesDeliveriesOnceItIsClosed) {
    const auto before = namespace_.Spawn(L"T_Disk");
    Deliver(before);
    sink_->Close();
    EXPECT_EQ(Deliver(namespace_.Spawn(L"T_Disk")), Hr(WBEM_E_CALL_CANCELLED));
    EXPECT_EQ(sink_->Take(), service::ObjectList{Behind(before)});
}

TEST_F(IndicationSinkTest, LosesNothingThatSeveralThreadsDeliver) {
    constexpr int each = 200;
    RunOnThreads(4, [&](int) { Repeat(each, [&] { Deliver(namespace_.Spawn(L"T_Disk")); }); });
    EXPECT_EQ(sink_->Take().size(), 4U * each);
}

}  // namespace
}  // namespace qv::test
