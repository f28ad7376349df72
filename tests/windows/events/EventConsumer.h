#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/UnsupportedServices.h"
#include "tests/windows/events/EndableThreads.h"
#include "tests/windows/support/ClassStandIn.h"

// The management service as the events reach it: the provider's namespace and the sink.

namespace qv::test {

/// A class being fetched.
struct Fetch {
    std::wstring className;
    IWbemContext* context = nullptr;  ///< compared, never used

    bool operator==(const Fetch&) const = default;
};

/// The namespace of the provider.
class EventNamespace : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    /// What fetching a class answers; one that is not named succeeds. Set before a thread fetches.
    std::map<std::wstring, HRESULT> results;
    windows::ComPtr<ClassStandIn> definition = windows::MakeObject<ClassStandIn>();
    SharedList<Fetch> fetches;

    STDMETHODIMP GetObject(const BSTR path, long flags, IWbemContext* context,
                           IWbemClassObject** object, IWbemCallResult** callResult) override {
        const std::wstring name(windows::Bstr::ViewOf(path));
        fetches.Add({name, context});
        const auto found = results.find(name);
        const HRESULT result = flags != 0 || callResult != nullptr
                                   ? windows::Hr(WBEM_E_INVALID_PARAMETER)
                               : found == results.end() ? S_OK
                                                        : found->second;
        if (SUCCEEDED(result)) {
            definition.CopyTo(object);
        }
        return result;
    }
};

/// Where indications are delivered to.
class EventSink : public windows::ComObject<IWbemObjectSink> {
public:
    HRESULT result = S_OK;  ///< of each delivery
    Gate gate;              ///< each delivery passes it
    SharedList<windows::ComPtr<IWbemClassObject>> indications;
    SharedList<std::pair<long, HRESULT>> statuses;

    STDMETHODIMP Indicate(long count, IWbemClassObject** objects) override {
        for (long index = 0; index < count; ++index) {
            indications.Add(objects[index]);
        }
        gate.Pass();
        return result;
    }
    STDMETHODIMP SetStatus(long flags, HRESULT status, BSTR, IWbemClassObject*) override {
        statuses.Add({flags, status});
        return S_OK;
    }

    /// "event device" of each indication so far.
    std::vector<std::wstring> Events() const {
        std::vector<std::wstring> events;
        for (const auto& indication : indications.All()) {
            const auto& instance = static_cast<const InstanceStandIn&>(*indication.Get());
            events.push_back(instance.Value(L"EventID") + L" " + instance.Value(L"DeviceID"));
        }
        return events;
    }

    /// Waits, at most ten seconds, until there are so many indications.
    bool HasReceived(std::size_t count) const {
        for (int turn = 0; turn < 1000 && indications.All().size() < count; ++turn) {
            Sleep(10);
        }
        return indications.All().size() >= count;
    }
};

}  // namespace qv::test
