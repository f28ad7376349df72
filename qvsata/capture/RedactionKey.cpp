#include "qvsata/capture/RedactionKey.h"

#include <bit>
#include <cstddef>
#include <random>

namespace qv::capture {
namespace {

constexpr unsigned bitsOfByte = 8;

/// The state of SipHash between two words of its input.
class SipState {
public:
    explicit SipState(const std::array<std::uint64_t, 2>& key)
        : v_{0x736F6D6570736575 ^ key[0], 0x646F72616E646F6D ^ key[1], 0x6C7967656E657261 ^ key[0],
             0x7465646279746573 ^ key[1]} {}

    void Take(std::uint64_t word) {
        v_[3] ^= word;
        Round();
        Round();
        v_[0] ^= word;
    }

    std::uint64_t End() {
        v_[2] ^= 0xFF;
        for (int round = 0; round < 4; ++round) {
            Round();
        }
        return v_[0] ^ v_[1] ^ v_[2] ^ v_[3];
    }

private:
    void Round() {
        Mix(0, 1, 13);
        v_[0] = std::rotl(v_[0], 32);
        Mix(2, 3, 16);
        Mix(0, 3, 21);
        Mix(2, 1, 17);
        v_[2] = std::rotl(v_[2], 32);
    }

    void Mix(std::size_t one, std::size_t other, int turn) {
        v_[one] += v_[other];
        v_[other] = std::rotl(v_[other], turn) ^ v_[one];
    }

    std::array<std::uint64_t, 4> v_;
};

}  // namespace

RedactionKey RedactionKey::Random() {
    std::random_device random;
    Words words{};
    for (std::uint64_t& word : words) {
        word = (static_cast<std::uint64_t>(random()) << 32U) | random();
    }
    return RedactionKey(words);
}

RedactionKey::RedactionKey(std::string_view text)
    : words_{RedactionKey(Words{0, 0}).Hash(text), RedactionKey(Words{0, 1}).Hash(text)} {}

std::uint64_t RedactionKey::Hash(std::string_view bytes) const {
    SipState state(words_);
    std::uint64_t word = 0;
    for (std::size_t place = 0; place < bytes.size(); ++place) {
        const auto byte = static_cast<unsigned char>(bytes[place]);
        word |= static_cast<std::uint64_t>(byte) << (bitsOfByte * (place % sizeof word));
        if (place % sizeof word == sizeof word - 1) {
            state.Take(word);
            word = 0;
        }
    }
    constexpr unsigned bitsBeforeLength = 56;
    state.Take(word | (static_cast<std::uint64_t>(bytes.size()) << bitsBeforeLength));
    return state.End();
}

}  // namespace qv::capture
