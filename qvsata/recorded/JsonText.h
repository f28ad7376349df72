#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

namespace qv::service {

/// A step from a value of a document to one inside it.
struct JsonStep {
    bool isElement = false;  ///< of an array; else a member of an object
    std::size_t place = 0;   ///< of the element
    std::string name;        ///< of the member
};

/// Is shown each value as soon as it is complete, with the steps to it from the root. It may change
/// the value. It returns true for a value that is no longer needed, which then is not in the
/// document: so a large document need not be in memory as a whole.
using JsonTaker =
    std::function<bool(std::span<const JsonStep> steps, nlohmann::ordered_json& value)>;

/// Parses a JSON document in a time proportional to its length. Members keep their order. Two names
/// of one object that differ at most in case are refused. Throws HostFileError.
/// @param file the file in messages
nlohmann::ordered_json ParseJson(std::string_view text, const std::string& file,
                                 const JsonTaker& take);

}  // namespace qv::service
