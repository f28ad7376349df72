#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "qvsata/service/RecordedHost.h"

namespace qv::service {

/// A recorded host in the place of the machine: lets the portable core run on it without a
/// management service. Texts stay UTF-8 on every system. May be used from several threads at once.
class RecordedQueryPort : public platform::QueryPort, public platform::HostFacts {
public:
    explicit RecordedQueryPort(RecordedHost host) : host_(std::move(host)) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;

    /// The recorded names; a name that was not recorded is error 1210 (invalid computer name).
    platform::ComputerName NameInFormat(platform::NameFormat format) const override;
    std::string ToNarrow(std::wstring_view text) const override;

private:
    RecordedHost host_;
};

/// A property's value as the management service would hand it over: whole numbers as 32-bit ones;
/// what the core does not read as platform::UnreadValue.
platform::Value ToPlatformValue(const CimValue& value);

}  // namespace qv::service
