#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "NativeAPI/NativeAPI.h"
#include "tests/core/Records.h"
#include "tests/support/ScriptedHost.h"

namespace qv::test {

/// A log that keeps its lines as "level text".
class KeptLog : public platform::LogPort {
public:
    int Level() const override { return level; }
    void Write(int lineLevel, std::string_view text) override {
        lines.push_back(std::to_string(lineLevel) + " " + std::string(text));
    }

    int level = 1;
    std::vector<std::string> lines;
};

/// The data layer over a scripted host called "host.example.org".
class BuilderTest : public testing::Test {
protected:
    void ForgetHostName() { host.names.clear(); }

    ScriptedHost host;
    KeptLog log;
    NativeAPI api{host, host, log};
};

/// The properties with one of them set to another value.
inline Properties With(Properties properties, const std::string& name, platform::Value value) {
    properties.insert_or_assign(name, std::move(value));
    return properties;
}

/// The properties without one of them.
inline Properties Without(Properties properties, const std::string& name) {
    properties.erase(name);
    return properties;
}

}  // namespace qv::test
