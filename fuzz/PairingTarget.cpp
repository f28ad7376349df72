#include "fuzz/Chooser.h"
#include "tests/support/PlainPairing.h"

namespace qv::fuzz {
namespace {

// The first byte chooses the rule; some values name none. Each line is a key; those that begin
// with ">" are the second side's.
struct Keys {
    std::vector<std::string> first;
    std::vector<std::string> second;

    explicit Keys(Chooser chooser) {
        while (!chooser.AtEnd()) {
            std::string key = chooser.Line();
            if (key.starts_with('>')) {
                second.push_back(key.substr(1));
            } else {
                first.push_back(std::move(key));
            }
        }
    }
};

}  // namespace

void RunPairing(Bytes input) {
    Chooser chooser(input);
    const auto rule = static_cast<MatchRule>(chooser.Below(12));
    const Keys keys(chooser);
    // The plain loops are the cost of this target, not what it tests.
    if (keys.first.size() * keys.second.size() <= 400) {
        Require(PairKeys(keys.first, keys.second, rule) ==
                    test::PairPlainly(keys.first, keys.second, rule),
                "PairKeys finds what testing every pair finds");
    }
}

}  // namespace qv::fuzz
