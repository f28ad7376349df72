#pragma once

#include <windows.h>

#include <utility>

namespace qv::windows {

/// What a file handle is when there is no file: CreateFileW and FindFirstFileW answer it.
struct NoFile {
    static HANDLE Value() { return INVALID_HANDLE_VALUE; }
};

/// What a kernel object's handle is when there is no object: CreateMutexW and its like answer it.
struct NoObject {
    static constexpr HANDLE Value() { return nullptr; }
};

/// Owns a handle and closes it. `Nothing` names the value that stands for no handle.
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

    /// Gives the handle up: the caller closes it.
    HANDLE Release() { return std::exchange(handle_, Nothing::Value()); }

    /// For an out parameter; what was held is closed.
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

/// Holds a mutex from construction, which waits for it without a time limit, to destruction. A
/// mutex whose owner died counts as acquired. Belongs to the thread that made it.
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

    /// 0 when the mutex is held, otherwise the system error code of the wait.
    DWORD Error() const { return error_; }

private:
    HANDLE mutex_;
    DWORD error_ = ERROR_SUCCESS;
};

}  // namespace qv::windows
