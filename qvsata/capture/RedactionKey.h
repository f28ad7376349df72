#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace qv::capture {

/// The secret on which all replacements of a redaction depend. Recordings that are redacted with
/// the same key match each other; without the key nobody can try which text has a replacement.
class RedactionKey {
public:
    /// Returns another key each time.
    static RedactionKey Random();

    /// The key that a user names. Whoever knows the text has the key.
    explicit RedactionKey(std::string_view text);

    /// Returns a number that nobody can predict without the key: SipHash-2-4 of the bytes.
    std::uint64_t Hash(std::string_view bytes) const;

private:
    using Words = std::array<std::uint64_t, 2>;
    explicit RedactionKey(const Words& words) : words_(words) {}

    Words words_;
};

}  // namespace qv::capture
