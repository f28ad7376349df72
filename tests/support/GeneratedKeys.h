#pragma once

#include <random>
#include <string>
#include <vector>

namespace qv::test {

/// Generates lists of similar keys: empty ones, repetitions, beginnings, ends and inner parts of
/// other keys, other letter cases, keys joined to lists and to longer keys. The same seed generates
/// the same keys on every system.
class KeyGenerator {
public:
    explicit KeyGenerator(std::uint32_t seed) : random_(seed) {}

    std::vector<std::string> Keys() {
        std::vector<std::string> keys(Below(9));
        for (std::string& key : keys) {
            key = Next();
        }
        return keys;
    }

private:
    std::size_t Below(std::size_t bound) { return random_() % bound; }

    std::string Next() {
        std::string key = Derived();
        earlier_.push_back(key);
        return key;
    }

    std::string Derived() {
        if (earlier_.empty()) {
            return Fresh();
        }
        std::string base = earlier_[Below(earlier_.size())];
        switch (Below(10)) {
            case 0:
                return {};
            case 1:
                return base;
            case 2:
                return base.substr(0, Below(base.size() + 1));
            case 3:
                return base.substr(Below(base.size() + 1));
            case 4:
                return base.substr(Below(base.size() + 1)).substr(0, 2);
            case 5:
                return OtherCase(std::move(base));
            case 6:
                return base + Fresh();
            case 7:
                return Fresh() + base;
            case 8:
                return base + "*-*" + (Below(2) == 0 ? std::string() : Fresh());
            default:
                return Fresh();
        }
    }

    // Few different letters, so that a key often occurs in another by chance.
    std::string Fresh() {
        static constexpr char letters[] = {'a', 'A', 'b', '&', '*', '-', '\xC4'};
        std::string key(1 + Below(4), ' ');
        for (char& letter : key) {
            letter = letters[Below(sizeof letters)];
        }
        return key;
    }

    std::string OtherCase(std::string key) {
        for (char& letter : key) {
            if ((letter == 'a' || letter == 'A' || letter == 'b') && Below(2) == 0) {
                letter = static_cast<char>(letter ^ ' ');
            }
        }
        return key;
    }

    std::mt19937 random_;
    std::vector<std::string> earlier_;
};

}  // namespace qv::test
