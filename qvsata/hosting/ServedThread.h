#pragma once

#include <windows.h>

#include <exception>
#include <functional>
#include <thread>

#include "qvsata/hosting/CallerIdentity.h"
#include "qvsata/hosting/ComApartment.h"

namespace qv::service {

/// Runs `body` as a served call on a new thread of the multithreaded apartment, and waits for it.
/// Rethrows what it throws.
inline void RunAsServedCall(SECURITY_IMPERSONATION_LEVEL level, const std::function<void()>& body) {
    std::exception_ptr raised;
    std::thread([&] {
        try {
            // A new thread has the user's locale; under Wine its code page is the process's only
            // once it was set.
            SetThreadLocale(LOCALE_USER_DEFAULT);
            const ComApartment apartment;
            const ServedCall call(level);
            body();
        } catch (...) {
            raised = std::current_exception();
        }
    }).join();
    if (raised) {
        std::rethrow_exception(raised);
    }
}

}  // namespace qv::service
