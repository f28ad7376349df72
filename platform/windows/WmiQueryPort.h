#pragma once

#include "platform/QueryPort.h"

namespace qv::windows {

/// Source rows from the management service. Every query connects anew through the administrative
/// locator, so that it runs with the provider's own rights, not with those of the caller. The
/// calling thread is initialised for COM.
class WmiQueryPort : public platform::QueryPort {
public:
    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;
};

}  // namespace qv::windows
