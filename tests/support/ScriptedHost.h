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

namespace qv::test {

using Properties = std::map<std::string, platform::Value, std::less<>>;

/// A row that holds exactly the properties it was given.
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

private:
    Properties properties_;
};

/// A host that answers query texts exactly as a test scripted them and remembers what was asked.
/// A text that was not scripted fails. The host's name is "host.example.org", its log's level 3.
class ScriptedHost : public platform::QueryPort,
                     public platform::HostFacts,
                     public platform::LogPort {
public:
    ScriptedHost() { names[platform::NameFormat::dnsFullyQualified] = {0, "host.example.org"}; }

    ScriptedHost& Answer(std::string query, std::vector<Properties> rows) {
        platform::Rows& scripted = answers_[std::move(query)];
        scripted.clear();
        for (Properties& row : rows) {
            scripted.push_back(std::make_shared<ScriptedRow>(std::move(row)));
        }
        return *this;
    }

    ScriptedHost& Fail(std::string_view query) {
        answers_.erase(answers_.find(query));
        return *this;
    }

    platform::QueryResult RunWqlQuery(std::string_view nameSpace, std::string_view query,
                                      platform::Rows& rows) const override {
        asked.push_back(std::string(nameSpace) + ": " + std::string(query));
        rows.clear();
        const auto found = answers_.find(query);
        if (found == answers_.end()) {
            return platform::QueryResult::failed;
        }
        rows = found->second;
        return platform::QueryResult::submitted;
    }

    platform::ComputerName NameInFormat(platform::NameFormat format) const override {
        const auto found = names.find(format);
        return found == names.end() ? platform::ComputerName{1, {}} : found->second;
    }

    int Level() const override { return level; }

    void Write(int lineLevel, std::string_view text) override { log.emplace_back(lineLevel, text); }

    /// "namespace: query", in the order in which they were run.
    mutable std::vector<std::string> asked;
    /// The names that the system gives; a format that is missing fails with error 1.
    std::map<platform::NameFormat, platform::ComputerName> names;
    /// The log's configured level.
    int level = 3;
    /// The level and the text of each line that was logged.
    std::vector<std::pair<int, std::string>> log;

private:
    std::map<std::string, platform::Rows, std::less<>> answers_;
};

}  // namespace qv::test
