// Measures what the tool's management service adds to a request of the provider on a recorded host:
// "rows/CLASS/ROWS", a query of the class and the reading of one text of each row.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "benchmarks/RunBenchmarks.h"
#include "qvsata/service/JournaledMachine.h"
#include "qvsata/service/MachineQueries.h"
#include "qvsata/service/RecordedMachine.h"
#include "source/Namespaces.h"
#include "source/PropertyReaders.h"

namespace qv::benchmarks {
namespace {

constexpr const char* className = "Win32_PhysicalMedia";

service::Connector MachineWith(int rows) {
    service::RecordedHost host({"SRV01", "", "", ""});
    for (int number = 0; number < rows; ++number) {
        host.AddRow(cimNamespace, className,
                    {{"Caption", "Fixed hard disk media"},
                     {"SerialNumber", "HDF4Z" + std::to_string(10000 + number)},
                     {"Tag", R"(\\.\PHYSICALDRIVE)" + std::to_string(number)}});
    }
    return WithJournal(
        service::ConnectRecorded(std::make_shared<const service::RecordedHost>(std::move(host))),
        service::MachineKind::recorded, std::make_shared<service::SourceJournal>());
}

void ReadsRows(benchmark::State& state) {
    const service::MachineQueries machine(MachineWith(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        platform::Rows rows;
        machine.RunWqlQuery(cimNamespace, "SELECT * FROM Win32_PhysicalMedia", rows);
        for (const auto& row : rows) {
            benchmark::DoNotOptimize(TextOrEmpty(*row, "Tag"));
        }
    }
}

BENCHMARK(ReadsRows)->Name("rows/Win32_PhysicalMedia")->Arg(16)->Arg(256)->Arg(1024);

}  // namespace
}  // namespace qv::benchmarks

int main(int argc, char** argv) {
    return qv::benchmarks::RunBenchmarks(argc, argv);
}
