#pragma once

#include <benchmark/benchmark.h>

#include <string_view>

#include "platform/LogPort.h"

namespace qv::benchmarks {

/// A log that takes nothing.
class SilentLog : public platform::LogPort {
public:
    LogLevel Level() const override { return LogLevel::error; }
    void Write(LogLevel, std::string_view) override {}
};

/// Runs what was registered, as the command line asks. Gives the exit code of the program.
inline int RunBenchmarks(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace qv::benchmarks
