// Measures each builder and the minimal reads that it needs: "read/CLASS/DISKS" and
// "build/CLASS/DISKS". tools/bench makes a table of them.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <map>
#include <string>

#include "NativeAPI/NativeAPI.h"
#include "benchmarks/ClassReads.h"
#include "benchmarks/GeneratedHost.h"
#include "benchmarks/RunBenchmarks.h"
#include "catalogue/Catalogue.h"
#include "tests/support/SilentLog.h"

namespace qv::benchmarks {
namespace {

// Generates each host once: generating a large one takes longer than the measured operation.
const GeneratedHost& HostWith(std::int64_t disks) {
    static std::map<std::int64_t, GeneratedHost> hosts;
    return hosts.try_emplace(disks, static_cast<int>(disks)).first->second;
}

void Reads(benchmark::State& state, const ClassReads& one) {
    const GeneratedHost& host = HostWith(state.range(0));
    for (auto _ : state) {
        one.read(host, host);
    }
}

void Builds(benchmark::State& state, const ClassReads& one) {
    const GeneratedHost& host = HostWith(state.range(0));
    test::SilentLog log;
    const NativeAPI api(PublishedCatalogue(), host, host, log);
    if (api.BuildAllInstances(one.className, mode::allProperties).empty()) {
        state.SkipWithError("the class has no instances");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(api.BuildAllInstances(one.className, mode::allProperties));
    }
}

void RegisterClass(const ClassReads& one) {
    const std::string name(one.className);
    for (const int disks : {1, 16, 256, 1024}) {
        benchmark::RegisterBenchmark(("read/" + name).c_str(), Reads, one)->Arg(disks);
        benchmark::RegisterBenchmark(("build/" + name).c_str(), Builds, one)->Arg(disks);
    }
}

}  // namespace
}  // namespace qv::benchmarks

int main(int argc, char** argv) {
    for (const auto& one : qv::benchmarks::MeasuredClasses()) {
        qv::benchmarks::RegisterClass(one);
    }
    return qv::benchmarks::RunBenchmarks(argc, argv);
}
