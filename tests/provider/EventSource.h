#pragma once

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/Handle.h"
#include "tests/support/windows/Gate.h"
#include "tests/support/windows/SourceStandIn.h"

namespace qv::test {

/// A disk of interface type IDE as a test names it, with its failure-prediction row.
struct DiskStandIn {
    std::wstring id;
    std::wstring status = L"OK";
};
using Disks = std::vector<DiskStandIn>;

/// The management service as the monitor queries it, with ten disks at most.
class EventSource : public SourceStandIn {
public:
    /// Sets the disks of the next polls; the last ones stay.
    void SetLooks(std::vector<Disks> looks) {
        const windows::HeldMutex held(mutex_.Get());
        looks_ = std::move(looks);
        firstLook_ = looked_;
    }

    Gate gate;  ///< each query for disks passes it

    /// Returns the number of polls.
    std::size_t LookCount() const { return looked_; }

    QueryScript Find(const std::wstring& query) override {
        if (query == L"SELECT * FROM Win32_DiskDrive") {
            gate.Pass();
            return Rows(looked_++, [](const DiskStandIn& disk) -> Cells {
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
        return SourceStandIn::Find(query);
    }

private:
    template <typename ToRow>
    QueryScript Rows(std::size_t look, ToRow toRow) const {
        const windows::HeldMutex held(mutex_.Get());
        const std::size_t index = look < firstLook_ ? 0 : look - firstLook_;
        const Disks& disks = looks_[std::min(index, looks_.size() - 1)];
        std::vector<Cells> rows(disks.size());
        std::ranges::transform(disks, rows.begin(), toRow);
        return InOneBatch(std::move(rows));
    }

    /// A kernel mutex: a thread may be terminated while it holds it.
    windows::KernelHandle mutex_{CreateMutexW(nullptr, FALSE, nullptr)};
    std::vector<Disks> looks_{{}};
    std::size_t firstLook_ = 0;
    std::atomic<std::size_t> looked_ = 0;
};

}  // namespace qv::test
