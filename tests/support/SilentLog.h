#pragma once

#include <string_view>

#include "platform/LogPort.h"

namespace qv::test {

/// A log that drops its lines, on any thread.
class SilentLog : public platform::LogPort {
public:
    /// `level`: the configured level, failures only unless given.
    explicit SilentLog(LogLevel level = LogLevel::error) : level_(level) {}

    LogLevel Level() const override { return level_; }
    void Write(LogLevel, std::string_view) override {}

private:
    LogLevel level_;
};

}  // namespace qv::test
