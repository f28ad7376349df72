#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/windows/Gate.h"
#include "tests/support/windows/SinkStandIn.h"

namespace qv::test {

/// The sink of the indications.
class EventSink : public SinkStandIn {
public:
    Gate gate;  ///< each delivery passes it

    STDMETHODIMP Indicate(long count, IWbemClassObject** indications) override {
        const HRESULT result = SinkStandIn::Indicate(count, indications);
        gate.Pass();
        return result;
    }

    /// Returns "event device" for each indication so far.
    std::vector<std::wstring> Events() const {
        std::vector<std::wstring> events;
        for (const auto& indication : objects.All()) {
            const auto& instance = static_cast<const InstanceStandIn&>(*indication.Get());
            events.push_back(instance.Value(L"EventID") + L" " + instance.Value(L"DeviceID"));
        }
        return events;
    }

    /// Waits at most ten seconds for `count` indications.
    bool HasReceived(std::size_t count) const {
        for (int turn = 0; turn < 1000 && ObjectCount() < count; ++turn) {
            Sleep(10);
        }
        return ObjectCount() >= count;
    }
};

}  // namespace qv::test
