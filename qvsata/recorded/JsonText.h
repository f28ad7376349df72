#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace qv::service {

/// An object or array of a document that is read, and the value in it that is read.
struct JsonLevel {
    nlohmann::ordered_json* around;
    std::size_t place = 0;          ///< of the value
    std::set<std::string> names{};  ///< folded; of the members of an object so far

    bool IsArray() const { return around->is_array(); }
    /// Returns the name of the value, which is a member of an object.
    const std::string& Name() const {
        return around->get_ref<const nlohmann::ordered_json::object_t&>().back().first;
    }
};

/// Is shown each value as soon as it is complete, with the levels around it from the root. It may
/// change the value. It returns true for a value that is no longer needed, which then is not in the
/// document: so a large document need not be in memory as a whole.
using JsonTaker =
    std::function<bool(std::span<const JsonLevel> levels, nlohmann::ordered_json& value)>;

/// Parses a JSON document in a time proportional to its length. Members keep their order. Two names
/// of one object that differ at most in case are refused. Throws HostFileError.
/// @param file the file in messages
nlohmann::ordered_json ParseJson(std::string_view text, const std::string& file,
                                 const JsonTaker& take);

}  // namespace qv::service
