#pragma once

#include "platform/QueryPort.h"

namespace qv::windows {

/// Source rows from the management service. Every query opens a connection of its own through the
/// administrative locator, so that it runs with the provider's rights and not the caller's. The
/// calling thread must be initialised for COM.
class WmiQueryPort : public platform::QueryPort {
public:
    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;
};

}  // namespace qv::windows
