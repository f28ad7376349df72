#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/HostFacts.h"
#include "platform/LogPort.h"
#include "platform/QueryPort.h"
#include "qvsata/cim/Utf8.h"

namespace qv::test {

using Properties = std::map<std::string, platform::Value, std::less<>>;

/// A row with exactly the given properties, texts in UTF-8.
class ScriptedRow : public platform::Row {
public:
    explicit ScriptedRow(Properties properties) : properties_(std::move(properties)) {}

    platform::PropertyRead Get(std::string_view name) const override {
        const auto found = properties_.find(name);
        if (found == properties_.end()) {
            return {Status::notFound, {}};
        }
        return {Status::noError, found->second};
    }

    Status GetWideText(std::string_view name, std::wstring& text) const override {
        const platform::PropertyRead read = Get(name);
        const auto* found = std::get_if<std::string>(&read.value);
        if (found == nullptr) {
            return Succeeded(read.status) ? Status::failed : read.status;
        }
        text = service::ToWide(*found);
        return Status::noError;
    }

private:
    Properties properties_;
};

/// A host that answers the query texts that a test scripted and records the queries. An unscripted
/// query fails. The host's name is "host.example.org", its log's level 3, and its code page has
/// ASCII characters only.
class ScriptedHost : public platform::QueryPort,
                     public platform::HostFacts,
                     public platform::LogPort {
public:
    ScriptedHost() { names[platform::NameFormat::dnsFullyQualified] = {0, L"host.example.org"}; }

    ScriptedHost& Answer(std::string query, std::vector<Properties> rows) {
        auto& [status, scripted] = answers_[std::move(query)];
        status = Status::noError;
        scripted.clear();
        for (Properties& row : rows) {
            scripted.push_back(std::make_shared<ScriptedRow>(std::move(row)));
        }
        return *this;
    }

    ScriptedHost& Fail(std::string query, Status status = Status::failed) {
        answers_[std::move(query)] = {status, {}};
        return *this;
    }

    Status RunWqlQuery(std::string_view nameSpace, std::string_view query,
                       platform::Rows& rows) const override {
        asked.push_back(std::string(nameSpace) + ": " + std::string(query));
        rows.clear();
        const auto found = answers_.find(query);
        if (found == answers_.end()) {
            return Status::failed;
        }
        rows = found->second.rows;
        return found->second.status;
    }

    platform::ComputerName NameInFormat(platform::NameFormat format) const override {
        const auto found = names.find(format);
        return found == names.end() ? platform::ComputerName{1, {}} : found->second;
    }

    std::string ToNarrow(std::wstring_view text) const override {
        std::string narrow;
        for (const wchar_t character : text) {
            narrow += character < 0x80 ? static_cast<char>(character) : '?';
        }
        return narrow;
    }

    LogLevel Level() const override { return static_cast<LogLevel>(level); }

    void Write(LogLevel lineLevel, std::string_view text) override {
        log.emplace_back(static_cast<int>(lineLevel), text);
    }

    /// "namespace: query", in order of execution.
    mutable std::vector<std::string> asked;
    /// The host's names; a missing format fails with error 1.
    std::map<platform::NameFormat, platform::ComputerName> names;
    /// The log's configured level.
    int level = 3;
    /// Level and text of each logged line.
    std::vector<std::pair<int, std::string>> log;

private:
    struct Answered {
        Status status = Status::noError;
        platform::Rows rows;
    };

    std::map<std::string, Answered, std::less<>> answers_;
};

}  // namespace qv::test
