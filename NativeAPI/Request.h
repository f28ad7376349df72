#pragma once

#include <cstdint>
#include <string_view>

#include "source/InstanceRecord.h"

namespace qv {

/// What a request wants of each instance: bits of the mode word.
namespace mode {
inline constexpr std::uint32_t allProperties = 2;
inline constexpr std::uint32_t keysOnly = 4;
/// The second pass of NativeAPI::FindRecordByKey. Builders test only the bit of allProperties.
inline constexpr std::uint32_t foundByKey = 8 + allProperties;
}  // namespace mode

/// A request as every builder receives it. The texts belong to the caller and outlive the call.
struct Request {
    std::string_view className;  ///< the published class, as the caller spelled it
    std::uint32_t mode = mode::allProperties;
    std::string_view path;  ///< relative object path of the one wanted instance; empty: all

    bool WantsAllProperties() const { return (mode & mode::allProperties) != 0; }

    /// Whether the record, whose keys are complete, is one of those asked for.
    bool Accepts(const InstanceRecord& record) const;
};

}  // namespace qv
