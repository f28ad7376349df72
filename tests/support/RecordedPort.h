#pragma once

#include <memory>
#include <utility>

#include "qvsata/service/MachineQueries.h"
#include "qvsata/service/RecordedMachine.h"

namespace qv::test {

/// A recorded host in place of the machine, for the core alone.
class RecordedPort : public platform::QueryPort, public platform::HostFacts {
public:
    explicit RecordedPort(const service::RecordedHost& host)
        : queries_(service::ConnectRecorded(std::make_shared<const service::RecordedHost>(host))),
          names_(host.Computer()) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        return queries_.RunWqlQuery(nameSpace, query, rows);
    }
    platform::ComputerName NameInFormat(platform::NameFormat format) const override {
        return names_.NameInFormat(format);
    }
    std::string ToNarrow(std::wstring_view text) const override { return names_.ToNarrow(text); }

private:
    service::MachineQueries queries_;
    service::RecordedNames names_;
};

}  // namespace qv::test
