#pragma once

#include "platform/LogPort.h"

namespace qv::provider {

/// The common log as the builders see it.
class BuilderLog : public platform::LogPort {
public:
    LogLevel Level() const override;
    void Write(LogLevel level, std::string_view text) override;
};

}  // namespace qv::provider
