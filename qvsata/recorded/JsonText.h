#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace qv::service {

/// Parses a JSON document in a time proportional to its length. Members keep their order. Two names
/// of one object that differ at most in case are refused. Throws HostFileError.
/// @param file the file in messages
nlohmann::ordered_json ParseJson(std::string_view text, const std::string& file);

}  // namespace qv::service
