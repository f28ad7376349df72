#pragma once

#include <atomic>

#include "log/ProviderLog.h"
#include "platform/LogPort.h"

namespace qv::provider {

/// The log of the core, which knows no log file: silent until a provider object, when it is
/// initialised, lends it the common log and that log's level.
class UtilityLog : public platform::LogPort {
public:
    /// From now on lines go to `log`, which outlives this object, under the level it has now.
    void Attach(ProviderLog& log);

    int Level() const override { return level_; }
    void Write(int level, std::string_view text) override;

private:
    std::atomic<ProviderLog*> log_ = nullptr;
    std::atomic<int> level_ = static_cast<int>(LogLevel::silent);
};

extern UtilityLog utilityLog;

}  // namespace qv::provider
