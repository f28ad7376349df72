// Measures the pairing of endpoints beside the test of every pair: "fast/RULE/DISKS" and
// "plain/RULE/DISKS", RULE being a number or "triple"; and each association class as a whole, with
// the building of its endpoints: "class/CLASS/DISKS".
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "NativeAPI/KeyPairing.h"
#include "NativeAPI/NativeAPI.h"
#include "benchmarks/AttachedHost.h"
#include "catalogue/Associations.h"

namespace qv::benchmarks {
namespace {

using Keys = std::vector<std::string>;

class SilentLog : public platform::LogPort {
public:
    int Level() const override { return 5; }
    void Write(int, std::string_view) override {}
};

// The keys of the endpoints on a host with the number of disks.
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
        SilentLog log;
        Keys keys;
        for (const auto& record :
             NativeAPI(host, host, log).BuildAllInstances(className, mode::keysOnly)) {
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

// Keys of which each has a partner under the rule.
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

Partners TestEveryPair(const Keys& first, const Keys& second, MatchRule rule) {
    Partners partners(first.size());
    for (std::size_t a = 0; a < first.size(); ++a) {
        for (std::size_t b = 0; b < second.size(); ++b) {
            if (MatchKeyValues(first[a], second[b], rule)) {
                partners[a].push_back(b);
            }
        }
    }
    return partners;
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
        benchmark::DoNotOptimize(TestEveryPair(sides.first, sides.second, rule));
    }
}

void FastTriple(benchmark::State& state) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            PairKeys(keys.initiators, keys.targets, MatchRule::secondContains));
        benchmark::DoNotOptimize(PairKeys(keys.targets, keys.extents, MatchRule::firstContainsToo));
    }
}

// Three nested loops that look at the extents behind a pair that matches only.
void PlainTriple(benchmark::State& state) {
    const EndpointKeys keys(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::size_t triples = 0;
        for (const std::string& initiator : keys.initiators) {
            for (const std::string& target : keys.targets) {
                if (!MatchKeyValues(initiator, target, MatchRule::secondContains)) {
                    continue;
                }
                for (const std::string& extent : keys.extents) {
                    triples +=
                        MatchKeyValues(target, extent, MatchRule::firstContainsToo) ? 1U : 0U;
                }
            }
        }
        benchmark::DoNotOptimize(triples);
    }
}

void WholeClass(benchmark::State& state, std::string_view className) {
    const AttachedHost host(static_cast<int>(state.range(0)));
    SilentLog log;
    const NativeAPI api(host, host, log);
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
    benchmark::RegisterBenchmark("plain/triple", PlainTriple)->Arg(disks);
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
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
