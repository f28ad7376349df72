#pragma once

#include <cstdint>
#include <string_view>

#include "source/InstanceRecord.h"

namespace qv {

/// The properties that a request wants: bits of the mode word.
namespace mode {
inline constexpr std::uint32_t allProperties = 2;
inline constexpr std::uint32_t keysOnly = 4;
/// The second pass of NativeAPI::FindRecordByKey. Builders test only the bit of allProperties.
inline constexpr std::uint32_t foundByKey = 8 + allProperties;
}  // namespace mode

/// Restricts associations to those of one endpoint. An empty text does not restrict. Builders of
/// instance classes ignore the filter. The texts belong to the caller and outlive the call.
struct EndpointFilter {
    std::string_view path;  ///< relative object path of the endpoint; without a "." it names none
    std::string_view role;  ///< the role that the endpoint plays
    std::string_view resultClass;  ///< the class of another endpoint, or an ancestor of that class

    bool NamesEndpoint() const { return path.find('.') != std::string_view::npos; }
    std::string_view ClassOfPath() const { return path.substr(0, path.find('.')); }
};

/// A request as every builder receives it. The texts belong to the caller and outlive the call.
struct Request {
    std::string_view className;  ///< the published class, as the caller spelled it
    std::uint32_t mode = mode::allProperties;
    std::string_view path;  ///< relative object path of the requested instance; empty: all
    EndpointFilter endpoint{};

    bool WantsAllProperties() const { return (mode & mode::allProperties) != 0; }

    /// Returns whether the record, whose keys are complete, matches the path.
    bool Accepts(const InstanceRecord& record) const;
};

}  // namespace qv
