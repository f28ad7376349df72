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
#include "tests/windows/events/EndableThreads.h"
#include "tests/windows/support/RegisteredFactory.h"
#include "tests/windows/support/RowStandIn.h"

// The management service as the monitor asks it for disks.

namespace qv::test {

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

}  // namespace qv::test
