#pragma once

#include <string>
#include <string_view>

namespace qv::test {

inline std::string RepeatedText(int count, std::string_view text) {
    std::string repeated;
    for (; count > 0; --count) {
        repeated += text;
    }
    return repeated;
}

}  // namespace qv::test
