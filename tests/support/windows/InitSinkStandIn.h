#pragma once

#include <wbemprov.h>

#include <utility>
#include <vector>

#include "platform/windows/ComObject.h"

namespace qv::test {

/// Records the result of an initialisation.
class InitSinkStandIn : public windows::ComObject<IWbemProviderInitSink> {
public:
    HRESULT result = S_OK;                        ///< what SetStatus returns
    std::vector<std::pair<LONG, LONG>> statuses;  ///< status and flags of each call

    STDMETHODIMP SetStatus(LONG status, LONG flags) override {
        statuses.emplace_back(status, flags);
        return result;
    }
};

}  // namespace qv::test
