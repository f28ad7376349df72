#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvsata/service/MachineQueries.h"
#include "qvsata/service/RecordedMachine.h"

namespace qv::test {

/// A recorded host in place of the machine, for the core alone. Each query runs once; its rows are
/// kept, because the classes repeat the queries of one another. For one thread.
class RecordedPort : public platform::QueryPort, public platform::HostFacts {
public:
    explicit RecordedPort(const service::RecordedHost& host)
        : queries_(service::ConnectRecorded(std::make_shared<const service::RecordedHost>(host))),
          names_(host.Computer()) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        const auto [answer, isNew] =
            answers_.try_emplace({std::string(nameSpace), std::string(query)});
        if (isNew) {
            answer->second.status = queries_.RunWqlQuery(nameSpace, query, answer->second.rows);
        }
        rows = answer->second.rows;
        return answer->second.status;
    }
    platform::ComputerName NameInFormat(platform::NameFormat format) const override {
        return names_.NameInFormat(format);
    }
    std::string ToNarrow(std::wstring_view text) const override { return names_.ToNarrow(text); }

private:
    struct Answer {
        Status status = Status::noError;
        platform::Rows rows;
    };

    service::MachineQueries queries_;
    mutable std::map<std::pair<std::string, std::string>, Answer> answers_;
    service::RecordedNames names_;
};

}  // namespace qv::test
