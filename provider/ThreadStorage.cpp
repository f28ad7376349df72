// Frees the library's thread storage indexes when it is unloaded. The C++ library's own thread
// support allocates one and never frees it, and a process has no more than 1,088: without this, a
// host that loads and unloads the library that often ends in abort().
#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace {

/// The indexes allocated since the library was loaded. One belongs to the thread support, one to
/// the monitor threads; an index beyond the capacity is not freed.
class AllocatedIndexes {
public:
    constexpr AllocatedIndexes() = default;
    AllocatedIndexes(const AllocatedIndexes&) = delete;
    AllocatedIndexes& operator=(const AllocatedIndexes&) = delete;
    ~AllocatedIndexes() {
        for (std::size_t position = 0; position < count_ && position < capacity; ++position) {
            TlsFree(indexes_[position]);
        }
    }

    void Add(DWORD index) {
        const std::size_t position = count_++;
        if (position < capacity) {
            indexes_[position] = index;
        }
    }

private:
    static constexpr std::size_t capacity = 8;

    std::array<DWORD, capacity> indexes_{};
    std::atomic<std::size_t> count_ = 0;
};

/// Destroyed after all other objects of the library: their destructors may use thread storage.
[[gnu::init_priority(101)]] constinit AllocatedIndexes allocatedIndexes;

}  // namespace

// The linker directs every call of TlsAlloc within the library here (option --wrap).
extern "C" {

extern DWORD(WINAPI* const __real___imp_TlsAlloc)();

static DWORD WINAPI AllocateIndex() {
    const DWORD index = __real___imp_TlsAlloc();
    if (index != TLS_OUT_OF_INDEXES) {
        allocatedIndexes.Add(index);
    }
    return index;
}

extern DWORD(WINAPI* const __wrap___imp_TlsAlloc)();
DWORD(WINAPI* const __wrap___imp_TlsAlloc)() = AllocateIndex;

}  // extern "C"
