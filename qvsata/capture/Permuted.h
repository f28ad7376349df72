#pragma once

#include <string>
#include <string_view>

#include "qvsata/capture/RedactionKey.h"

namespace qv::capture {

/// Returns other letters and digits of the same alphabets. For one key and one context different
/// characters have different results, however few they are.
/// @param context selects one of many permutations
/// @param characters letters and digits, folded
std::wstring Permuted(const RedactionKey& key, std::string_view context, std::wstring characters);

}  // namespace qv::capture
