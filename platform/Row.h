#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Status.h"

namespace qv::platform {

/// A value of a kind that the core does not read: real numbers, embedded objects, dates.
struct UnreadValue {};

/// A property's value as the management service delivered it. It keeps width and sign, which decide
/// what the typed readers accept. Text is in the system's ANSI code page (UTF-8 on a native build).
/// std::monostate means no value (null).
using Value =
    std::variant<std::monostate, std::string, bool, std::int8_t, std::uint8_t, std::int16_t,
                 std::uint16_t, std::int32_t, std::uint32_t, std::vector<std::int16_t>,
                 std::vector<std::uint16_t>, std::vector<std::int32_t>, std::vector<std::uint32_t>,
                 std::vector<std::string>, UnreadValue>;

/// The result of reading a property: a success and the value, or the failure.
struct PropertyRead {
    Status status = Status::notFound;
    Value value;
};

/// One object that a query returned. Reading has no side effects and may be done from several
/// threads at once.
class Row {
public:
    virtual ~Row() = default;

    /// Reads the property `name`, ignoring case; also system properties such as "__PATH".
    virtual PropertyRead Get(std::string_view name) const = 0;

    /// Reads a text as the management service holds it, without a code page. Returns Status::failed
    /// for any other kind of value, including null, and the status of the read if the property
    /// cannot be read. On failure `text` is unchanged.
    virtual Status GetWideText(std::string_view name, std::wstring& text) const = 0;
};

/// The rows of a query, in the order in which the management service returned them.
using Rows = std::vector<std::shared_ptr<const Row>>;

}  // namespace qv::platform
