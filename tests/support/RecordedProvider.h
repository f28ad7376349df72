#pragma once

#include <memory>
#include <string_view>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Catalogue.h"
#include "qvsata/recorded/HostFile.h"
#include "source/TypedValue.h"
#include "tests/support/RecordedPort.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/SilentLog.h"

namespace qv::test {

/// The portable core on a recorded host, without a management service. The core's query for its own
/// published disks returns what it builds.
class RecordedProvider : public RecordedPort {
public:
    explicit RecordedProvider(const service::RecordedHost& host) : RecordedPort(host) {}

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        if (nameSpace != R"(root\QVQ)" || query != "SELECT * FROM QV_SATADiskDrive") {
            return RecordedPort::RunWqlQuery(nameSpace, query, rows);
        }
        rows.clear();
        for (const InstanceRecord& disk : All("QV_SATADiskDrive")) {
            rows.push_back(std::make_shared<ScriptedRow>(ReadBack(disk)));
        }
        return Status::noError;
    }

    /// Returns the instances of a class.
    RecordList All(std::string_view className) const {
        return api_.BuildAllInstances(className, mode::allProperties);
    }
    /// Returns the instances of a class with an object path.
    RecordList At(std::string_view className, std::string_view path) const {
        return api_.BuildInstances(className, mode::allProperties, path);
    }

private:
    /// Returns the disk's status as a client of the management service reads it.
    static Properties ReadBack(const InstanceRecord& disk) {
        TypedValue status;
        ToTypedValue(GetPropertyEntry(disk, "OperationalStatus"), status);
        const auto* codes = std::get_if<std::vector<std::int32_t>>(&status);
        return {{"OperationalStatus", codes == nullptr ? platform::Value() : *codes}};
    }

    mutable SilentLog log_;
    NativeAPI api_{PublishedCatalogue(), *this, *this, log_};
};

}  // namespace qv::test
