// libFuzzer's entry: runs the target that the environment variable QV_FUZZ_TARGET names.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "fuzz/Oracle.h"

namespace {

using qv::fuzz::Bytes;
using qv::fuzz::Target;

// What an execution may cost: generous for the sanitizers. In an input of 4,096 bytes, the longest
// of tools/fuzz, it finds a rule that spends more than 11 ns on each pair of bytes.
constexpr double secondsPerRun = 0.1;
constexpr double secondsPerByte = 0.00002;

const Target* target = nullptr;

double ProcessorSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

double CostOfRun(Bytes input) {
    const double begin = ProcessorSeconds();
    target->run(input);
    return ProcessorSeconds() - begin;
}

// Runs an input that takes longer than the bound again: a pause of a virtual machine counts as its
// processor time.
double CostOf(Bytes input, double bound) {
    double seconds = CostOfRun(input);
    for (int more = 2; more > 0 && seconds > bound; --more) {
        seconds = std::min(seconds, CostOfRun(input));
    }
    return seconds;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const char* name = std::getenv("QV_FUZZ_TARGET");
    target = std::ranges::find(qv::fuzz::targets, name == nullptr ? "" : name, &Target::name);
    if (target == qv::fuzz::targets.end()) {
        std::fprintf(stderr, "QV_FUZZ_TARGET names no target\n");
        std::exit(1);
    }
    // What a target reads once is no cost of an input.
    target->run({});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const double bound = secondsPerRun + secondsPerByte * static_cast<double>(size);
    const double seconds = CostOf({data, size}, bound);
    qv::fuzz::Require(seconds <= bound, "an input of " + std::to_string(size) +
                                            " bytes takes less than " + std::to_string(bound) +
                                            " s; it took " + std::to_string(seconds));
    return 0;
}
