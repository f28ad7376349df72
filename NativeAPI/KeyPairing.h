#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NativeAPI/KeyMatching.h"

namespace qv {

/// For each first key, the positions of its partners among the second keys, in ascending order.
using Partners = std::vector<std::vector<std::size_t>>;

/// Finds the pairs of keys for which MatchKeyValues(first, second, rule) holds. It looks up each
/// key in a table of the other side's keys instead of testing every pair.
Partners PairKeys(std::span<const std::string> firstKeys, std::span<const std::string> secondKeys,
                  MatchRule rule);

/// The same for at most `most` pairs; returns nothing, early, if there are more.
std::optional<Partners> PairKeysUpTo(std::size_t most, std::span<const std::string> firstKeys,
                                     std::span<const std::string> secondKeys, MatchRule rule);

}  // namespace qv
