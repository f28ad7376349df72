#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/support/windows/InstanceStandIn.h"

namespace qv::test {

/// A class definition whose instances are InstanceStandIns. Any thread may spawn from it once it is
/// set up.
class ClassStandIn : public service::UnsupportedObject {
public:
    /// Properties that the instances refuse.
    std::set<std::wstring> undefined;
    /// The results of the first spawns; later ones succeed.
    std::vector<HRESULT> spawnResults;
    std::atomic<std::size_t> spawns = 0;

    STDMETHODIMP SpawnInstance(LONG flags, IWbemClassObject** instance) override {
        const std::size_t turn = spawns++;
        const HRESULT result = turn < spawnResults.size() ? spawnResults[turn] : S_OK;
        if (flags != 0) {
            return windows::Hr(WBEM_E_INVALID_PARAMETER);
        }
        if (SUCCEEDED(result)) {
            *instance = windows::MakeObject<InstanceStandIn>(undefined).Detach();
        }
        return result;
    }
};

}  // namespace qv::test
