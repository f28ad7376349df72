#include "qvsata/capture/Leaks.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "qvsata/capture/Alphabet.h"
#include "qvsata/cim/ObjectPath.h"
#include "qvsata/cim/Utf8.h"

namespace qv::capture {
namespace {

std::string InJson(const std::string& text) {
    // Pairs of a text that is not ASCII may be swapped to no text at all.
    const std::string quoted =
        nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return quoted.substr(1, quoted.size() - 2);
}

std::string HexOf(const std::string& text) {
    std::string digits;
    for (const char character : text) {
        std::array<char, 3> code{};
        std::snprintf(code.data(), code.size(), "%02x", static_cast<unsigned char>(character));
        digits += code.data();
    }
    return digits;
}

std::string Swapped(std::string text) {
    for (std::size_t place = 1; place < text.size(); place += 2) {
        std::swap(text[place - 1], text[place]);
    }
    return text;
}

std::vector<std::string> FormsOf(const std::string& secret) {
    return {InJson(secret), InJson(service::EscapePathValue(secret)), HexOf(secret),
            HexOf(Swapped(secret)), InJson(Swapped(secret))};
}

}  // namespace

std::vector<std::wstring> LeaksIn(std::string_view text,
                                  const std::vector<std::pair<std::wstring, Reach>>& secrets) {
    const std::wstring folded = Folded(service::ToWide(text));
    std::vector<std::wstring> leaks;
    for (const auto& [secret, reach] : secrets) {
        const std::vector<std::string> forms = FormsOf(service::ToUtf8(secret));
        const auto isFound = [&](const std::string& form) {
            return folded.find(Folded(service::ToWide(form))) != folded.npos;
        };
        const bool isLeak = reach == Reach::words
                                ? ContainsWord(folded, Folded(service::ToWide(forms.front())))
                                : reach == Reach::everywhere && std::ranges::any_of(forms, isFound);
        if (isLeak) {
            leaks.push_back(secret);
        }
    }
    return leaks;
}

}  // namespace qv::capture
