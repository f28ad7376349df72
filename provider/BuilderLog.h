#pragma once

#include "platform/LogPort.h"

namespace qv::provider {

/// The common log as the builders see it.
class BuilderLog : public platform::LogPort {
public:
    int Level() const override;
    void Write(int level, std::string_view text) override;
};

}  // namespace qv::provider
