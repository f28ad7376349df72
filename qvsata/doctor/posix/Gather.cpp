#include "qvsata/doctor/Gather.h"

#include "qvsata/cim/StatusCodes.h"

namespace qv::doctor {

std::optional<Facts> ReadMachine() {
    return std::nullopt;
}

service::Connection ConnectInstalled(std::string_view) {
    return {service::status::notSupported, nullptr};
}

Fact<std::vector<Right>> RightsOf(std::string_view) {
    return Unknown{"needs Windows"};
}

}  // namespace qv::doctor
