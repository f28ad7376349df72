// Measures three things, by the number of disks:
//   "fast/RULE/DISKS", the pairing of endpoints by their keys as the library does it, each key
//     looked up among those of the other side; RULE is the number of a matching rule, or "triple"
//     for the two rules of the three-way class, the triples counted;
//   "plain/RULE/DISKS", the same result from the test of every pair, or of every triple: the full
//     cross product, without a stop and without a look ahead;
//   "class/CLASS/DISKS", a whole association class as a request builds it: its endpoints, their
//     pairing and the records.
// Keys are built before the clock starts, and every first key has a partner.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "NativeAPI/NativeAPI.h"
#include "benchmarks/AttachedHost.h"
#include "benchmarks/RunBenchmarks.h"
#include "catalogue/Associations.h"
#include "catalogue/Catalogue.h"
#include "tests/support/PlainPairing.h"
#include "tests/support/SilentLog.h"

namespace qv::benchmarks {
namespace {

using Keys = std::vector<std::string>;

// The keys of the endpoints on a host with a number of disks.
struct EndpointKeys {
    explicit EndpointKeys(int disks)
        : initiators(KeysOf(disks, "QV_ISATAProtocolEndpoint", "Name")),
          targets(KeysOf(disks, "QV_TSATAProtocolEndpoint", "Name")),
          extents(KeysOf(disks, "QV_SATAStorageExtent", "DeviceID")) {
        for (std::size_t number = 0; number < extents.size(); ++number) {
            lists.push_back(extents[number] + "*-*" + initiators[number]);
        }
    }

    static Keys KeysOf(int disks, std::string_view className, std::string_view key) {
        const AttachedHost host(disks);
        test::SilentLog log;
        Keys keys;
        for (const auto& record : NativeAPI(PublishedCatalogue(), host, host, log)
                                      .BuildAllInstances(className, mode::keysOnly)) {
            keys.push_back(GetPropertyEntry(record, key).value);
        }
        return keys;
    }

    Keys initiators;
    Keys targets;
    Keys extents;
    Keys lists;  // an extent and an initiator each
};

struct Sides {
    const Keys& first;
    const Keys& second;
};

// Returns keys that each have a partner under the rule.
Sides SidesOf(const EndpointKeys& keys, MatchRule rule) {
    switch (rule) {
        case MatchRule::firstBeginsWith:
        case MatchRule::firstContains:
        case MatchRule::firstContainsToo:
            return {keys.targets, keys.extents};
        case MatchRule::secondBeginsWith:
            return {keys.extents, keys.targets};
        case MatchRule::firstEndsWith:
            return {keys.targets, keys.initiators};
        case MatchRule::secondEndsWith:
        case MatchRule::secondContains:
            return {keys.initiators, keys.targets};
        case MatchRule::firstListsSecond:
            return {keys.lists, keys.extents};
        case MatchRule::secondListsFirst:
            return {keys.extents, keys.lists};
        default:
            return {keys.extents, keys.extents};
    }
}

void Fast(benchmark::State& state, MatchRule rule) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    const Sides sides = SidesOf(keys, rule);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PairKeys(sides.first, sides.second, rule));
    }
}

void Plain(benchmark::State& state, MatchRule rule) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    const Sides sides = SidesOf(keys, rule);
    for (auto _ : state) {
        benchmark::DoNotOptimize(test::PairPlainly(sides.first, sides.second, rule));
    }
}

void FastTriple(benchmark::State& state) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const Partners targets = PairKeys(keys.initiators, keys.targets, MatchRule::secondContains);
        const Partners extents = PairKeys(keys.targets, keys.extents, MatchRule::firstContainsToo);
        std::size_t triples = 0;
        for (const auto& places : targets) {
            for (const std::size_t place : places) {
                triples += extents[place].size();
            }
        }
        benchmark::DoNotOptimize(triples);
    }
}

void PlainTriple(benchmark::State& state) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::size_t triples = 0;
        for (const std::string& initiator : keys.initiators) {
            for (const std::string& target : keys.targets) {
                for (const std::string& extent : keys.extents) {
                    const bool match =
                        MatchKeyValues(initiator, target, MatchRule::secondContains) &&
                        MatchKeyValues(target, extent, MatchRule::firstContainsToo);
                    triples += match ? 1U : 0U;
                }
            }
        }
        benchmark::DoNotOptimize(triples);
    }
}

void WholeClass(benchmark::State& state, std::string_view className) {
    const AttachedHost host(static_cast<int>(state.range(0)));
    test::SilentLog log;
    const NativeAPI api(PublishedCatalogue(), host, host, log);
    for (auto _ : state) {
        benchmark::DoNotOptimize(api.BuildAllInstances(className, mode::allProperties));
    }
}

void RegisterAll(int disks) {
    for (std::uint32_t number = 0; number <= 10; ++number) {
        const auto rule = static_cast<MatchRule>(number);
        const std::string name = std::to_string(number);
        benchmark::RegisterBenchmark(("fast/" + name).c_str(), Fast, rule)->Arg(disks);
        benchmark::RegisterBenchmark(("plain/" + name).c_str(), Plain, rule)->Arg(disks);
    }
    benchmark::RegisterBenchmark("fast/triple", FastTriple)->Arg(disks);
    auto* plainTriple = benchmark::RegisterBenchmark("plain/triple", PlainTriple)->Arg(disks);
    if (disks >= 256) {
        // Cubic in the number of disks: takes seconds, so that one run is exact enough.
        plainTriple->Iterations(1)->Repetitions(1);
    }
    for (const Association& one : associations) {
        benchmark::RegisterBenchmark(("class/" + std::string(one.name)).c_str(), WholeClass,
                                     one.name)
            ->Arg(disks);
    }
}

}  // namespace
}  // namespace qv::benchmarks

int main(int argc, char** argv) {
    for (const int disks : {16, 64, 256, 1024}) {
        qv::benchmarks::RegisterAll(disks);
    }
    return qv::benchmarks::RunBenchmarks(argc, argv);
}
