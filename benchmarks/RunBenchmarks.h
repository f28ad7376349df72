#pragma once

#include <benchmark/benchmark.h>

namespace qv::benchmarks {

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
