#pragma once

#include <wbemcli.h>

#include <vector>

#include "platform/windows/ComObject.h"
#include "tests/windows/support/InstanceStandIn.h"

namespace qv::test {

/// An operation's end as the sink heard of it.
struct StatusCall {
    long flags = -1;
    HRESULT result = E_UNEXPECTED;
    bool withoutMore = false;  ///< neither a text nor an object came with it

    bool operator==(const StatusCall&) const = default;
};

/// A response sink of one request; keeps what it is given.
class SinkStandIn : public windows::ComObject<IWbemObjectSink> {
public:
    /// What the first calls of Indicate answer; later ones succeed.
    std::vector<HRESULT> indicateResults;
    HRESULT statusResult = S_OK;

    std::vector<windows::ComPtr<IWbemClassObject>> objects;
    std::vector<long> batches;  ///< the number of objects of each Indicate
    std::vector<StatusCall> statuses;

    bool Untouched() const { return batches.empty() && statuses.empty(); }

    const InstanceStandIn& Instance(std::size_t index) const {
        return static_cast<const InstanceStandIn&>(*objects.at(index).Get());
    }

    STDMETHODIMP Indicate(long count, IWbemClassObject** array) override {
        const std::size_t turn = batches.size();
        batches.push_back(count);
        objects.insert(objects.end(), array, array + count);
        return turn < indicateResults.size() ? indicateResults[turn] : S_OK;
    }

    STDMETHODIMP SetStatus(long flags, HRESULT result, BSTR text,
                           IWbemClassObject* object) override {
        statuses.push_back({flags, result, text == nullptr && object == nullptr});
        return statusResult;
    }
};

/// The end of a request that completed with `result`.
inline std::vector<StatusCall> CompletedWith(HRESULT result) {
    return {{WBEM_STATUS_COMPLETE, result, true}};
}

}  // namespace qv::test
