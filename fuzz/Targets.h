#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace qv::fuzz {

using Bytes = std::span<const std::uint8_t>;

/// A part of the system that takes outside bytes. `run` throws Finding if an oracle does not hold;
/// any other exception is a finding too.
struct Target {
    std::string_view name;  ///< also of its folder in corpus/
    void (*run)(Bytes);
};

void RunHostText(Bytes input);      ///< a recorded host as JSON: read, written and published
void RunHostTokens(Bytes input);    ///< a host put together from tokens, published
void RunMof(Bytes input);           ///< MOF files: read, written
void RunWql(Bytes input);           ///< a query, or a condition, and its evaluation
void RunObjectPath(Bytes input);    ///< an object path and its reduction
void RunPairing(Bytes input);       ///< a matching rule and two lists of keys
void RunDeviceId(Bytes input);      ///< the rules that take device IDs apart and compare them
void RunTypedValue(Bytes input);    ///< a property's type and text
void RunSettings(Bytes input);      ///< values of the registry that configure the provider
void RunView(Bytes input);          ///< published objects of any content, as people read them
void RunTerminalText(Bytes input);  ///< any bytes on a terminal

inline constexpr std::array targets{
    Target{"host_text", RunHostText},
    Target{"host_tokens", RunHostTokens},
    Target{"mof", RunMof},
    Target{"wql", RunWql},
    Target{"object_path", RunObjectPath},
    Target{"pairing", RunPairing},
    Target{"device_id", RunDeviceId},
    Target{"typed_value", RunTypedValue},
    Target{"settings", RunSettings},
    Target{"view", RunView},
    Target{"terminal_text", RunTerminalText},
};

}  // namespace qv::fuzz
