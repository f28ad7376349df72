#pragma once

#include <cstdint>
#include <exception>

namespace qv {

/// Status codes of the management service (wbemcli.h) and of COM (winerror.h) that the portable
/// core returns or passes on. The values are the platform's HRESULTs.
enum class Status : std::uint32_t {
    noError = 0,                      ///< WBEM_S_NO_ERROR
    failed = 0x80041001,              ///< WBEM_E_FAILED
    notFound = 0x80041002,            ///< WBEM_E_NOT_FOUND
    invalidCimType = 0x8004102D,      ///< WBEM_E_INVALID_CIM_TYPE
    unspecifiedFailure = 0x80004005,  ///< E_FAIL
    outOfMemory = 0x8007000E,         ///< E_OUTOFMEMORY
};

/// Returns whether a status is a success, as COM defines it: the topmost bit marks a failure.
constexpr bool Succeeded(Status status) {
    return (static_cast<std::uint32_t>(status) & 0x80000000U) == 0;
}

/// Ends the current request. Builders throw it; nothing between them and the caller of the provider
/// catches it.
class RequestError : public std::exception {
public:
    explicit RequestError(Status status) : status_(status) {}

    Status status() const { return status_; }
    const char* what() const noexcept override { return "the request failed"; }

private:
    Status status_;
};

}  // namespace qv
