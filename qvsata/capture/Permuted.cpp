#include "qvsata/capture/Permuted.h"

#include <cstddef>
#include <cstdint>

#include "qvsata/capture/Alphabet.h"

namespace qv::capture {

std::wstring Permuted(const RedactionKey& key, std::string_view context, std::wstring characters) {
    // A Feistel network: in turn each half is shifted by a number that depends on the other half.
    constexpr unsigned rounds = 10;
    const std::size_t middle = characters.size() / 2;
    const std::wstring_view all = characters;
    for (unsigned round = 0; round < rounds; ++round) {
        const bool isFirst = round % 2 != 0;
        const std::wstring_view other = isFirst ? all.substr(middle) : all.substr(0, middle);
        std::string message = std::to_string(round) + ' ' + std::to_string(context.size()) + ' ';
        message.append(context).append(BytesOf(other));
        const std::string seed = std::to_string(key.Hash(message)) + ' ';
        const std::size_t end = isFirst ? middle : characters.size();
        for (std::size_t place = isFirst ? 0 : middle; place < end; ++place) {
            characters[place] = Shifted(characters[place], key.Hash(seed + std::to_string(place)));
        }
    }
    return characters;
}

}  // namespace qv::capture
