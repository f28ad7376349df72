#include "qvsata/cim/StatusCodes.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace qv::service {
namespace {

struct Meaning {
    Status code;
    const char* text;
};

constexpr std::array meanings{
    Meaning{Status::failed, "failed"},
    Meaning{Status::notFound, "not found"},
    Meaning{status::accessDenied, "access denied"},
    Meaning{status::providerFailure, "the provider failed"},
    Meaning{status::typeMismatch, "type mismatch"},
    Meaning{status::noMemory, "out of memory"},
    Meaning{Status::outOfMemory, "out of memory"},
    Meaning{status::invalidParameter, "invalid parameter"},
    Meaning{status::notSupported, "not supported"},
    Meaning{status::invalidNamespace, "unknown namespace"},
    Meaning{status::invalidClass, "unknown class"},
    Meaning{status::invalidQuery, "invalid query"},
    Meaning{status::providerNotCapable, "the provider cannot do this"},
    Meaning{status::invalidObjectPath, "invalid object path"},
    Meaning{Status::unspecifiedFailure, "unspecified failure"},
    // COM's own (winerror.h): REGDB_E_CLASSNOTREG, CLASS_E_CLASSNOTAVAILABLE.
    Meaning{Status{0x80040154}, "class not registered"},
    Meaning{Status{0x80040111}, "the library does not have the class"},
};

}  // namespace

std::string StatusText(Status code) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(code));
    const auto known = std::ranges::find(meanings, code, &Meaning::code);
    return known == meanings.end() ? number.data()
                                   : std::string(known->text) + " (" + number.data() + ")";
}

}  // namespace qv::service
