#pragma once

#include <cstddef>
#include <string>

#include "fuzz/Oracle.h"

namespace qv::fuzz {

/// Turns bytes into choices; when they are used up, always chooses the first.
class Chooser {
public:
    explicit Chooser(Bytes bytes) : bytes_(bytes) {}

    bool AtEnd() const { return bytes_.empty(); }

    /// Returns a number less than `bound`, which is at most 256.
    std::size_t Below(std::size_t bound) {
        if (AtEnd()) {
            return 0;
        }
        const std::size_t chosen = bytes_.front() % bound;
        bytes_ = bytes_.subspan(1);
        return chosen;
    }

    template <typename Table>
    const auto& OneOf(const Table& table) {
        return table[Below(std::size(table))];
    }

    /// Returns the bytes up to the next line feed, or another end, and skips it.
    std::string Line(char end = '\n') {
        const std::string_view rest = TextOf(bytes_);
        const std::string line(rest.substr(0, rest.find(end)));
        bytes_ = bytes_.subspan(line.size() + (line.size() < rest.size() ? 1 : 0));
        return line;
    }

    /// Returns all bytes that are left.
    std::string_view Rest() const { return TextOf(bytes_); }

private:
    Bytes bytes_;
};

}  // namespace qv::fuzz
