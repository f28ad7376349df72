#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "NativeAPI/NativeAPI.h"
#include "catalogue/Catalogue.h"
#include "catalogue/Classes.h"
#include "qvsata/recorded/HostFile.h"
#include "source/TypedValue.h"
#include "tests/golden_native/GoldenText.h"
#include "tests/support/RecordedPort.h"
#include "tests/support/ScriptedHost.h"

namespace qv::test {

/// The portable core on a recorded host, without a management service. The core's question for its
/// own published disks is answered with what it builds.
class RecordedProvider : public RecordedPort {
public:
    explicit RecordedProvider(const service::RecordedHost& host)
        : RecordedPort(host), prefix_(NamespacePrefix(host.Computer().server)) {}

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

    const std::string& Prefix() const { return prefix_; }

    RecordList All(std::string_view className) const {
        return api_.BuildAllInstances(className, mode::allProperties);
    }

    /// A record in the form in which its instance is published.
    PublishedInstance Publish(const InstanceRecord& record) const {
        PublishedInstance instance{record.className, {}};
        for (const PropertyEntry& entry : record.properties) {
            TypedValue value;
            if (ToTypedValue(entry, value)) {
                instance.properties.push_back(
                    {entry.name, VariantType(value), AsPublished(value), entry.key});
            }
        }
        return instance;
    }

private:
    /// Nothing is logged.
    class SilentLog : public platform::LogPort {
    public:
        LogLevel Level() const override { return LogLevel::silent; }
        void Write(LogLevel, std::string_view) override {}
    };

    static std::uint16_t VariantType(const TypedValue& value) {
        constexpr std::uint16_t array = 0x2000;
        constexpr std::uint16_t types[] = {1, 8, 8, 17, 3, 11, array | 8, array | 3};
        return types[value.index()];
    }

    service::CimValue AsPublished(const TypedValue& value) const {
        using service::CimValue;
        struct Converter {
            const std::string& prefix;

            CimValue operator()(std::monostate) const { return {}; }
            CimValue operator()(const std::string& text) const { return text; }
            CimValue operator()(const Reference& reference) const {
                return prefix + reference.path;
            }
            CimValue operator()(std::uint8_t number) const { return std::int64_t{number}; }
            CimValue operator()(std::int32_t number) const { return std::int64_t{number}; }
            CimValue operator()(bool flag) const { return std::int64_t{flag ? 1 : 0}; }
            CimValue operator()(const std::vector<std::string>& texts) const { return texts; }
            CimValue operator()(const std::vector<std::int32_t>& numbers) const {
                return std::vector<std::int64_t>(numbers.begin(), numbers.end());
            }
        };
        return std::visit(Converter{prefix_}, value);
    }

    /// The disk's status as a client of the management service reads it.
    static Properties ReadBack(const InstanceRecord& disk) {
        TypedValue status;
        ToTypedValue(GetPropertyEntry(disk, "OperationalStatus"), status);
        const auto* codes = std::get_if<std::vector<std::int32_t>>(&status);
        return {{"OperationalStatus", codes == nullptr ? platform::Value() : *codes}};
    }

    std::string prefix_;
    mutable SilentLog log_;
    NativeAPI api_{PublishedCatalogue(), *this, *this, log_};
};

}  // namespace qv::test
