#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>

namespace qv::test {

/// The system resources of the process, to be compared while no other thread runs.
struct ProcessUsage {
    std::size_t handles = 0;    ///< open handles
    std::size_t heapBytes = 0;  ///< allocated bytes of all heaps

    static ProcessUsage Now() { return {OpenHandles(), AllocatedBytes()}; }

private:
    /// Counts by querying each handle: the system's own counter does not exist everywhere.
    static std::size_t OpenHandles() {
        std::size_t count = 0;
        for (std::uintptr_t value = 4; value < 0x8000; value += 4) {
            DWORD flags = 0;
            count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) ? 1U : 0U;
        }
        return count;
    }

    static std::size_t AllocatedBytes() {
        std::array<HANDLE, 64> heaps{};
        const DWORD count = GetProcessHeaps(heaps.size(), heaps.data());
        std::size_t bytes = 0;
        for (DWORD index = 0; index < count; ++index) {
            HeapLock(heaps[index]);
            PROCESS_HEAP_ENTRY entry{};
            while (HeapWalk(heaps[index], &entry)) {
                bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
            }
            HeapUnlock(heaps[index]);
        }
        return bytes;
    }
};

}  // namespace qv::test
