#pragma once

#include "log/ProviderLog.h"
#include "platform/LogPort.h"

namespace qv::provider {

/// The common log as the builders see it.
class BuilderLog : public platform::LogPort {
public:
    /// `log` must outlive the object.
    explicit BuilderLog(ProviderLog& log) : log_(log) {}

    LogLevel Level() const override { return log_.Level(); }
    void Write(LogLevel level, std::string_view text) override { log_.Write({}, level, text); }

private:
    ProviderLog& log_;
};

}  // namespace qv::provider
