#pragma once

#include <windows.h>

#include <objbase.h>

#include "platform/Status.h"

namespace qv::service {

/// Keeps the thread in the process's multithreaded apartment.
class ComApartment {
public:
    /// Throws RequestError if the thread is in a single-threaded apartment.
    ComApartment() {
        const HRESULT result = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        if (FAILED(result)) {
            throw RequestError(static_cast<Status>(result));
        }
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() { CoUninitialize(); }
};

}  // namespace qv::service
