#include "qvsata/hosting/LiveEnumeration.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/windows/ComObject.h"
#include "qvsata/cim/StatusCodes.h"

namespace qv::test {
namespace {

/// An enumeration whose Next ends in a scripted way, and notes for how long it may wait.
class EndingEnumeration final : public windows::ComObject<IEnumWbemClassObject> {
public:
    explicit EndingEnumeration(HRESULT end) : end_(end) {}

    STDMETHODIMP Next(LONG wait, ULONG, IWbemClassObject**, ULONG* returned) override {
        waits.push_back(wait);
        *returned = 0;
        return end_;
    }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP NextAsync(ULONG, IWbemObjectSink*) override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumWbemClassObject**) override { return E_NOTIMPL; }
    STDMETHODIMP Skip(LONG, ULONG) override { return E_NOTIMPL; }

    std::vector<LONG> waits;

private:
    HRESULT end_;
};

using service::ReadEnumeration;
using std::chrono::milliseconds;

TEST(LiveEnumeration, ThatDoesNotAnswerInTimeHasTimedOut) {
    const auto objects = windows::MakeObject<EndingEnumeration>(WBEM_S_TIMEDOUT);
    EXPECT_EQ(ReadEnumeration(*objects.Get(), milliseconds(5000)).status,
              service::status::timedOut);
    ASSERT_EQ(objects->waits.size(), 1U);
    EXPECT_GT(objects->waits[0], 0);
    EXPECT_LE(objects->waits[0], 5000);
}

TEST(LiveEnumeration, WaitsWithoutALimitUnlessThereIsOne) {
    const auto objects = windows::MakeObject<EndingEnumeration>(WBEM_S_FALSE);
    EXPECT_EQ(ReadEnumeration(*objects.Get(), std::nullopt).status, Status::noError);
    EXPECT_EQ(objects->waits, std::vector<LONG>{-1});
}

TEST(LiveEnumeration, ThatFailsEndsWithItsStatus) {
    const auto objects = windows::MakeObject<EndingEnumeration>(WBEM_E_ACCESS_DENIED);
    EXPECT_EQ(ReadEnumeration(*objects.Get(), std::nullopt).status,
              static_cast<Status>(0x80041003U));
}

}  // namespace
}  // namespace qv::test
