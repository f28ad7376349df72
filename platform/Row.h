#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/Status.h"

namespace qv::platform {

/// A value of a kind that nothing here reads: real numbers, embedded objects, dates.
struct UnreadValue {};

/// A property's value as the management service delivered it, its width and sign kept: the typed
/// readers accept by them. Text is in the system's ANSI code page (UTF-8 on a native build). No
/// value at all is std::monostate.
using Value =
    std::variant<std::monostate, std::string, bool, std::int8_t, std::uint8_t, std::int16_t,
                 std::uint16_t, std::int32_t, std::uint32_t, std::vector<std::int16_t>,
                 std::vector<std::uint16_t>, std::vector<std::int32_t>, std::vector<std::uint32_t>,
                 std::vector<std::string>, UnreadValue>;

/// What reading one property gave: a success and the value, or the failure of the read.
struct PropertyRead {
    Status status = Status::notFound;
    Value value;
};

/// One object that a query returned. Reading is free of side effects and may be done from several
/// threads at once.
class Row {
public:
    virtual ~Row() = default;

    /// Reads the property called `name`, in any letter case; system properties such as "__PATH"
    /// included.
    virtual PropertyRead Get(std::string_view name) const = 0;

    /// Reads a text as the management service holds it, through no code page. Accepts text only:
    /// another kind of value, null included, is Status::failed. A property that cannot be read is
    /// the status of the read. On failure `text` stays as it was.
    virtual Status GetWideText(std::string_view name, std::wstring& text) const = 0;
};

/// The rows of a query, in the order in which the management service returned them.
using Rows = std::vector<std::shared_ptr<const Row>>;

}  // namespace qv::platform
