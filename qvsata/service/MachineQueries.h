#pragma once

#include <optional>
#include <string_view>

#include "platform/HostFacts.h"
#include "platform/QueryPort.h"
#include "qvsata/recorded/RecordedHost.h"
#include "qvsata/service/Services.h"

namespace qv::service {

/// Runs the portable core's queries on a machine. Each query makes its own connection. Texts stay
/// UTF-8.
class MachineQueries final : public platform::QueryPort {
public:
    explicit MachineQueries(Connector machine) : machine_(std::move(machine)) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override;
    std::optional<platform::FoundRow> FindRow(std::string_view nameSpace,
                                              std::string_view className, std::string_view property,
                                              std::string_view text) const override;

private:
    Connector machine_;
};

/// The names of a recorded computer. Reading a name that was not recorded fails with error 1210
/// (invalid computer name).
class RecordedNames final : public platform::HostFacts {
public:
    explicit RecordedNames(ComputerNames names) : names_(std::move(names)) {}

    platform::ComputerName NameInFormat(platform::NameFormat format) const override;
    std::string ToNarrow(std::wstring_view text) const override;

private:
    ComputerNames names_;
};

/// Returns a property's value as the management service passes it to the core: whole numbers with
/// 32 bits, and platform::UnreadValue for anything that the core does not read.
platform::Value ToPlatformValue(CimValue value);

}  // namespace qv::service
