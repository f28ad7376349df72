#pragma once

#include <wbemcli.h>

#include <atomic>
#include <vector>

#include "platform/windows/ComObject.h"
#include "tests/support/windows/CallList.h"
#include "tests/support/windows/InstanceStandIn.h"

namespace qv::test {

/// A call of SetStatus.
struct StatusCall {
    long flags = -1;
    HRESULT result = E_UNEXPECTED;
    bool withoutMore = false;  ///< without text and object

    bool operator==(const StatusCall&) const = default;
};

/// A sink that records its calls. Any thread may deliver to it once it is set up.
class SinkStandIn : public windows::ComObject<IWbemObjectSink> {
public:
    /// The results of the first Indicate calls; later ones succeed.
    std::vector<HRESULT> indicateResults;
    HRESULT statusResult = S_OK;

    CallList<windows::ComPtr<IWbemClassObject>> objects;
    CallList<long> batches;  ///< the number of objects of each Indicate
    CallList<StatusCall> statuses;

    bool Untouched() const { return batches.All().empty() && statuses.All().empty(); }

    std::size_t ObjectCount() const { return objects.All().size(); }
    const InstanceStandIn& Instance(std::size_t index) const {
        return static_cast<const InstanceStandIn&>(*objects.All().at(index).Get());
    }

    STDMETHODIMP Indicate(long count, IWbemClassObject** array) override {
        const std::size_t turn = indications_++;
        batches.Add(count);
        for (long index = 0; index < count; ++index) {
            objects.Add(array[index]);
        }
        return turn < indicateResults.size() ? indicateResults[turn] : S_OK;
    }

    STDMETHODIMP SetStatus(long flags, HRESULT result, BSTR text,
                           IWbemClassObject* object) override {
        statuses.Add({flags, result, text == nullptr && object == nullptr});
        return statusResult;
    }

private:
    std::atomic<std::size_t> indications_ = 0;
};

/// The SetStatus of a request that completed with `result`.
inline std::vector<StatusCall> CompletedWith(HRESULT result) {
    return {{WBEM_STATUS_COMPLETE, result, true}};
}

}  // namespace qv::test
