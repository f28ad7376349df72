#pragma once

#include <windows.h>

#include <utility>

namespace qv::windows {

/// The null value of file handles (CreateFileW, FindFirstFileW).
struct NoFile {
    static HANDLE Value() { return INVALID_HANDLE_VALUE; }
};

/// The null value of kernel object handles (CreateMutexW).
struct NoObject {
    static constexpr HANDLE Value() { return nullptr; }
};

/// Owns a handle and closes it. `Nothing` defines the null value.
template <typename Nothing>
class OwnedHandle {
public:
    constexpr OwnedHandle() : OwnedHandle(Nothing::Value()) {}
    constexpr explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
    OwnedHandle(OwnedHandle&& other) noexcept : handle_(other.Release()) {}
    OwnedHandle& operator=(OwnedHandle&& other) noexcept {
        if (this != &other) {
            Reset();
            handle_ = other.Release();
        }
        return *this;
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    ~OwnedHandle() { Reset(); }

    explicit operator bool() const { return handle_ != Nothing::Value(); }
    HANDLE Get() const { return handle_; }

    /// Closes the handle, if there is one.
    void Reset() {
        if (const HANDLE handle = Release(); handle != Nothing::Value()) {
            CloseHandle(handle);
        }
    }

    /// Passes the handle to the caller, who closes it.
    HANDLE Release() { return std::exchange(handle_, Nothing::Value()); }

    /// For an out parameter; closes the current handle.
    HANDLE* Receive() {
        Reset();
        return &handle_;
    }

private:
    HANDLE handle_;
};

using FileHandle = OwnedHandle<NoFile>;
/// Threads, events, mutexes, tokens.
using KernelHandle = OwnedHandle<NoObject>;

/// Holds a mutex while it lives. The constructor waits without a time limit; a mutex whose owner
/// died counts as acquired. It belongs to the thread that created it.
class HeldMutex {
public:
    explicit HeldMutex(HANDLE mutex) : mutex_(mutex) {
        const DWORD result = WaitForSingleObject(mutex, INFINITE);
        if (result != WAIT_OBJECT_0 && result != WAIT_ABANDONED) {
            error_ = GetLastError();
        }
    }
    HeldMutex(const HeldMutex&) = delete;
    HeldMutex& operator=(const HeldMutex&) = delete;
    ~HeldMutex() {
        if (error_ == ERROR_SUCCESS) {
            ReleaseMutex(mutex_);
        }
    }

    /// 0 if the mutex is held, otherwise the system error code of the wait.
    DWORD Error() const { return error_; }

private:
    HANDLE mutex_;
    DWORD error_ = ERROR_SUCCESS;
};

}  // namespace qv::windows
