#include "qvsata/cim/StatusCodes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

namespace qv::service {
namespace {

struct Meaning {
    Status code;
    std::string_view symbol;
    std::string_view text;
};

constexpr std::array meanings{
    Meaning{Status::failed, "WBEM_E_FAILED", "failed"},
    Meaning{Status::notFound, "WBEM_E_NOT_FOUND", "not found"},
    Meaning{status::accessDenied, "WBEM_E_ACCESS_DENIED", "access denied"},
    Meaning{status::providerFailure, "WBEM_E_PROVIDER_FAILURE", "the provider failed"},
    Meaning{status::typeMismatch, "WBEM_E_TYPE_MISMATCH", "type mismatch"},
    Meaning{status::noMemory, "WBEM_E_OUT_OF_MEMORY", "out of memory"},
    Meaning{Status::outOfMemory, "E_OUTOFMEMORY", "out of memory"},
    Meaning{status::invalidParameter, "WBEM_E_INVALID_PARAMETER", "invalid parameter"},
    Meaning{status::notSupported, "WBEM_E_NOT_SUPPORTED", "not supported"},
    Meaning{status::invalidNamespace, "WBEM_E_INVALID_NAMESPACE", "unknown namespace"},
    Meaning{status::invalidClass, "WBEM_E_INVALID_CLASS", "unknown class"},
    Meaning{status::invalidQuery, "WBEM_E_INVALID_QUERY", "invalid query"},
    Meaning{status::alreadyExists, "WBEM_E_ALREADY_EXISTS", "exists already"},
    Meaning{status::providerNotCapable, "WBEM_E_PROVIDER_NOT_CAPABLE",
            "the provider cannot do this"},
    Meaning{status::invalidObjectPath, "WBEM_E_INVALID_OBJECT_PATH", "invalid object path"},
    Meaning{status::providerLoadFailure, "WBEM_E_PROVIDER_LOAD_FAILURE",
            "the provider cannot be loaded"},
    Meaning{status::transportFailure, "WBEM_E_TRANSPORT_FAILURE", "the connection failed"},
    Meaning{status::shuttingDown, "WBEM_E_SHUTTING_DOWN", "the service is shutting down"},
    Meaning{status::timedOut, "WBEM_E_TIMED_OUT", "no answer in time"},
    Meaning{status::quotaViolation, "WBEM_E_QUOTA_VIOLATION", "quota exceeded"},
    Meaning{Status::unspecifiedFailure, "E_FAIL", "unspecified failure"},
    // COM's own, winerror.h.
    Meaning{Status{0x80070005}, "E_ACCESSDENIED", "access denied"},
    Meaning{Status{0x800706BA}, "RPC_S_SERVER_UNAVAILABLE", "the service does not run"},
    Meaning{Status{0x80040154}, "REGDB_E_CLASSNOTREG", "class not registered"},
    Meaning{Status{0x80040111}, "CLASS_E_CLASSNOTAVAILABLE", "the library does not have the class"},
};

std::string Number(Status code) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(code));
    return number.data();
}

std::optional<Status> FailureOfNumber(std::string_view text) {
    constexpr std::string_view prefix = "0x";
    constexpr std::size_t length = 10;
    std::uint32_t number = 0;
    const char* const end = text.data() + text.size();
    if (text.size() != length || !text.starts_with(prefix) ||
        std::from_chars(text.data() + prefix.size(), end, number, 16).ptr != end ||
        Succeeded(Status{number})) {
        return std::nullopt;
    }
    return Status{number};
}

const Meaning* MeaningOf(Status code) {
    const auto* const found = std::ranges::find(meanings, code, &Meaning::code);
    return found == meanings.end() ? nullptr : found;
}

}  // namespace

std::string StatusText(Status code) {
    const Meaning* const meaning = MeaningOf(code);
    return meaning == nullptr ? Number(code)
                              : std::string(meaning->text) + " (" + Number(code) + ")";
}

std::string StatusName(Status code) {
    const Meaning* const meaning = MeaningOf(code);
    return meaning == nullptr ? Number(code)
                              : std::string(meaning->symbol) + " (" + Number(code) + ")";
}

std::string StatusSymbol(Status code) {
    const Meaning* const meaning = MeaningOf(code);
    return meaning == nullptr ? Number(code) : std::string(meaning->symbol);
}

std::string_view StatusMeaning(Status code) {
    const Meaning* const meaning = MeaningOf(code);
    return meaning == nullptr ? std::string_view() : meaning->text;
}

std::optional<Status> StatusOfName(std::string_view symbol) {
    const auto* const found = std::ranges::find(meanings, symbol, &Meaning::symbol);
    return found == meanings.end() ? FailureOfNumber(symbol) : std::optional(found->code);
}

}  // namespace qv::service
