#pragma once

#include <string>
#include <vector>

#include "NativeAPI/KeyPairing.h"

namespace qv::test {

/// The reference for PairKeys: tests every pair, in order.
inline Partners PairPlainly(const std::vector<std::string>& first,
                            const std::vector<std::string>& second, MatchRule rule) {
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

}  // namespace qv::test
