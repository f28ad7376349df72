#include "qvsata/service/MofStatus.h"

#include <array>
#include <cstdio>

namespace qv::service {

std::string ToText(const MofStatus& status) {
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%08X", static_cast<unsigned>(status.code));
    return std::string(status.name) + ' ' + code.data();
}

}  // namespace qv::service
