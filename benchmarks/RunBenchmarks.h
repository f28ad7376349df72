#pragma once

#include <benchmark/benchmark.h>

namespace qv::benchmarks {

/// Runs the registered benchmarks that the command line selects. Returns the program's exit code.
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
