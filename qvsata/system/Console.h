#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "qvsata/view/text/StyledText.h"

namespace qv::tool {

/// The output streams of the program.
enum class Stream { output, errors };

/// Returns whether a stream is a terminal.
bool IsTerminal(Stream stream);

/// Returns the width of the terminal to which a stream leads, in columns; nothing if it leads to
/// none.
std::optional<std::size_t> ColumnsOf(Stream stream);

/// Writes to standard output: text to a terminal, coloured unless the environment variable NO_COLOR
/// is set and not empty; UTF-8 bytes to anything else.
void Print(const view::StyledText& text);

/// Writes to standard error immediately, in one piece.
void WriteError(std::string_view text);

/// Switches the standard streams to unchanged UTF-8 bytes for its lifetime.
class Utf8Streams {
public:
    Utf8Streams();
    Utf8Streams(const Utf8Streams&) = delete;
    Utf8Streams& operator=(const Utf8Streams&) = delete;
    ~Utf8Streams();

private:
    unsigned usualCodePage_ = 0;
};

}  // namespace qv::tool
