#include "qvsata/service/com/StatusText.h"

#include <wbemcli.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/windows/WbemStatus.h"

namespace qv::service {
namespace {

struct Meaning {
    HRESULT status;
    const char* text;
};

const std::array meanings{
    Meaning{windows::Hr(WBEM_E_FAILED), "failed"},
    Meaning{windows::Hr(WBEM_E_NOT_FOUND), "not found"},
    Meaning{windows::Hr(WBEM_E_ACCESS_DENIED), "access denied"},
    Meaning{windows::Hr(WBEM_E_PROVIDER_FAILURE), "the provider failed"},
    Meaning{windows::Hr(WBEM_E_TYPE_MISMATCH), "type mismatch"},
    Meaning{windows::Hr(WBEM_E_OUT_OF_MEMORY), "out of memory"},
    Meaning{E_OUTOFMEMORY, "out of memory"},
    Meaning{windows::Hr(WBEM_E_INVALID_PARAMETER), "invalid parameter"},
    Meaning{windows::Hr(WBEM_E_NOT_SUPPORTED), "not supported"},
    Meaning{windows::Hr(WBEM_E_INVALID_NAMESPACE), "unknown namespace"},
    Meaning{windows::Hr(WBEM_E_INVALID_CLASS), "unknown class"},
    Meaning{windows::Hr(WBEM_E_INVALID_QUERY), "invalid query"},
    Meaning{windows::Hr(WBEM_E_PROVIDER_NOT_CAPABLE), "the provider cannot do this"},
    Meaning{windows::Hr(WBEM_E_INVALID_OBJECT_PATH), "invalid object path"},
    Meaning{E_FAIL, "unspecified failure"},
    Meaning{REGDB_E_CLASSNOTREG, "class not registered"},
    Meaning{CLASS_E_CLASSNOTAVAILABLE, "the library does not have the class"},
};

}  // namespace

std::string StatusText(HRESULT status) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(status));
    const auto* known = std::ranges::find(meanings, status, &Meaning::status);
    return known == meanings.end() ? number.data()
                                   : std::string(known->text) + " (" + number.data() + ")";
}

}  // namespace qv::service
