#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "fuzz/Targets.h"

namespace qv::fuzz {

/// What an oracle found wrong.
class Finding : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Throws Finding with the statement if it does not hold.
inline void Require(bool holds, const std::string& statement) {
    if (!holds) {
        throw Finding("does not hold: " + statement);
    }
}

inline std::string_view TextOf(Bytes input) {
    return {reinterpret_cast<const char*>(input.data()), input.size()};
}

}  // namespace qv::fuzz
