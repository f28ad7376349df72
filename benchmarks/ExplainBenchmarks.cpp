// Measures the verdicts of `explain` on all rows of a host: "verdicts/explain/DISKS". The rows are
// read and the instances published before the clock starts.
#include <benchmark/benchmark.h>

#include <string>

#include "NativeAPI/NativeAPI.h"
#include "benchmarks/GeneratedHost.h"
#include "benchmarks/RunBenchmarks.h"
#include "catalogue/Catalogue.h"
#include "qvsata/explain/Explain.h"
#include "tests/support/SilentLog.h"

namespace qv::benchmarks {
namespace {

view::PublishedHost PublishedOn(const GeneratedHost& host) {
    test::SilentLog log;
    const NativeAPI api(PublishedCatalogue(), host, host, log);
    view::PublishedHost published;
    for (const explain::ExplainedClass& one : explain::ExplainedClasses()) {
        auto& instances = published[std::string(one.name)];
        for (const InstanceRecord& record : api.BuildAllInstances(one.name, mode::allProperties)) {
            auto& instance = instances.emplace_back();
            for (const std::string_view name : one.properties) {
                instance.values[std::string(name)] = GetPropertyEntry(record, name).value;
            }
        }
    }
    return published;
}

void Explains(benchmark::State& state) {
    const GeneratedHost host(static_cast<int>(state.range(0)));
    const explain::SourceRows rows = explain::ReadSourceRows(host);
    const view::PublishedHost published = PublishedOn(host);
    for (auto _ : state) {
        benchmark::DoNotOptimize(explain::Explain(rows, published, 100'000'000));
    }
}

BENCHMARK(Explains)->Name("verdicts/explain")->Arg(16)->Arg(256)->Arg(1024);

}  // namespace
}  // namespace qv::benchmarks

int main(int argc, char** argv) {
    return qv::benchmarks::RunBenchmarks(argc, argv);
}
