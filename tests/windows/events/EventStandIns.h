#pragma once

#include <wbemcli.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <map>
#include <string>
#include <vector>

#include "platform/windows/Bstr.h"
#include "platform/windows/Handle.h"
#include "platform/windows/UnsupportedServices.h"
#include "tests/windows/support/ClassStandIn.h"
#include "tests/windows/support/RegisteredFactory.h"
#include "tests/windows/support/RowStandIn.h"

// Stand-ins for what the monitor's threads reach of the management service. Those threads are ended
// by force wherever they stand, so that nothing here holds a lock that would outlive its owner:
// kernel mutexes, and gates at which a test knows a thread to stand.

namespace qv::test {

/// A gate that lets threads through while it is open, and knows that one came.
class Gate {
public:
    /// Called by whoever passes the gate.
    void Pass() {
        SetEvent(arrived_.Get());
        WaitForSingleObject(open_.Get(), INFINITE);
    }

    void Open() { SetEvent(open_.Get()); }
    /// Closes the gate and forgets who came.
    void Close() {
        ResetEvent(open_.Get());
        ResetEvent(arrived_.Get());
    }

    /// Whether somebody came within ten seconds.
    bool SomebodyCame() const {
        return WaitForSingleObject(arrived_.Get(), 10000) == WAIT_OBJECT_0;
    }

private:
    windows::KernelHandle arrived_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    windows::KernelHandle open_{CreateEventW(nullptr, TRUE, TRUE, nullptr)};
};

/// A list that any thread may add to. Its room is there from the start: growing is no state to be
/// ended in.
template <typename Item>
class SharedList {
public:
    SharedList() { items_.reserve(20000); }

    void Add(Item item) {
        const windows::HeldMutex held(mutex_.Get());
        items_.push_back(std::move(item));
    }
    std::vector<Item> All() const {
        const windows::HeldMutex held(mutex_.Get());
        return items_;
    }
    void Clear() {
        const windows::HeldMutex held(mutex_.Get());
        items_.clear();
    }

private:
    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    std::vector<Item> items_;
};

/// A disk of interface type IDE as a test names it, with its failure-prediction row.
struct DiskStandIn {
    std::wstring id;
    std::wstring status = L"OK";
};
using Disks = std::vector<DiskStandIn>;

class EventSource;

class EventResults : public windows::ComObject<IEnumWbemClassObject> {
    static constexpr HRESULT refused = windows::Hr(WBEM_E_NOT_SUPPORTED);

public:
    explicit EventResults(std::vector<Cells> rows) : rows_(std::move(rows)) {}

    STDMETHODIMP Reset() override { return refused; }
    STDMETHODIMP Next(long, ULONG count, IWbemClassObject** objects, ULONG* returned) override {
        *returned = 0;
        while (*returned < count && next_ < rows_.size()) {
            objects[(*returned)++] = MakeRow(rows_[next_++]).Detach();
        }
        return *returned == count ? S_OK : windows::Hr(WBEM_S_FALSE);
    }
    STDMETHODIMP NextAsync(ULONG, IWbemObjectSink*) override { return refused; }
    STDMETHODIMP Clone(IEnumWbemClassObject**) override { return refused; }
    STDMETHODIMP Skip(long, ULONG) override { return refused; }

private:
    std::vector<Cells> rows_;
    std::size_t next_ = 0;
};

class EventConnection : public windows::UnsupportedServices<windows::ComObject<IWbemServices>> {
public:
    explicit EventConnection(EventSource& source) : source_(source) {}

    STDMETHODIMP ExecQuery(const BSTR, const BSTR query, long, IWbemContext*,
                           IEnumWbemClassObject** results) override;

private:
    EventSource& source_;
};

class EventLocator : public windows::ComObject<IWbemLocator> {
public:
    explicit EventLocator(EventSource& source) : source_(source) {}

    STDMETHODIMP ConnectServer(const BSTR, const BSTR, const BSTR, const BSTR, long, const BSTR,
                               IWbemContext*, IWbemServices** services) override {
        *services = windows::MakeObject<EventConnection>(source_).Detach();
        return S_OK;
    }

private:
    EventSource& source_;
};

/// The management service as the source of disks: in place of the system's while it lives.
class EventSource {
public:
    /// The disks at one look after the other from now on, the last ones for good.
    void SetLooks(std::vector<Disks> looks) {
        const windows::HeldMutex held(mutex_.Get());
        looks_ = std::move(looks);
        firstLook_ = looked_;
    }

    /// Rows of other queries. Set before a thread asks.
    std::map<std::wstring, std::vector<Cells>> rows;

    SharedList<std::wstring> asked;
    Gate gate;  ///< each query for disks passes it

    /// How often the disks were looked at.
    std::size_t LookCount() const { return looked_; }

    std::vector<Cells> Answer(const std::wstring& query) {
        asked.Add(query);
        if (query == L"SELECT * FROM Win32_DiskDrive") {
            gate.Pass();
            const std::size_t look = looked_++;
            return Rows(look, [](const DiskStandIn& disk) -> Cells {
                return {{L"InterfaceType", L"IDE"},
                        {L"PNPDeviceID", disk.id},
                        {L"Status", disk.status},
                        {L"Model", L"Model of " + disk.id}};
            });
        }
        if (query == L"SELECT * FROM MSStorageDriver_FailurePredictStatus") {
            return Rows(looked_ - 1, [](const DiskStandIn& disk) -> Cells {
                return {{L"InstanceName", disk.id + L"_0"}};
            });
        }
        const auto found = rows.find(query);
        return found == rows.end() ? std::vector<Cells>() : found->second;
    }

private:
    template <typename ToRow>
    std::vector<Cells> Rows(std::size_t look, ToRow toRow) const {
        const windows::HeldMutex held(mutex_.Get());
        std::vector<Cells> made;
        const std::size_t index = look < firstLook_ ? 0 : look - firstLook_;
        for (const DiskStandIn& disk : looks_[std::min(index, looks_.size() - 1)]) {
            made.push_back(toRow(disk));
        }
        return made;
    }

    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    std::vector<Disks> looks_{{}};
    std::size_t firstLook_ = 0;
    std::atomic<std::size_t> looked_ = 0;
    RegisteredFactory factory_{CLSID_WbemAdministrativeLocator, [this](REFIID iid, void** object) {
                                   return windows::MakeObject<EventLocator>(*this)->QueryInterface(
                                       iid, object);
                               }};
};

inline HRESULT EventConnection::ExecQuery(const BSTR, const BSTR query, long, IWbemContext*,
                                          IEnumWbemClassObject** results) {
    *results = windows::MakeObject<EventResults>(
                   source_.Answer(std::wstring(windows::Bstr::ViewOf(query))))
                   .Detach();
    return S_OK;
}

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
