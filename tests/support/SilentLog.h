#pragma once

#include <string_view>

#include "platform/LogPort.h"

namespace qv::test {

/// A log that drops its lines, on any thread.
class SilentLog : public platform::LogPort {
public:
    /// `level`: the configured level, failures only unless given.
    explicit SilentLog(int level = 5) : level_(level) {}

    int Level() const override { return level_; }
    void Write(int, std::string_view) override {}

private:
    int level_;
};

}  // namespace qv::test
