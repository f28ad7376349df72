#pragma once

#include <windows.h>

#include <objbase.h>

#include "platform/windows/WbemStatus.h"

namespace qv::service {

/// Keeps the thread in the process's multithreaded apartment.
class ComApartment {
public:
    /// Throws RequestError if the thread is in a single-threaded apartment.
    ComApartment() { windows::ThrowIfFailed(CoInitializeEx(nullptr, COINIT_MULTITHREADED)); }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() { CoUninitialize(); }
};

}  // namespace qv::service
