#pragma once

#include <string_view>

#include "qvsata/view/StyledText.h"

namespace qv::tool {

/// The two streams that the program writes.
enum class Stream { output, errors };

/// Whether a stream leads to a terminal.
bool IsTerminal(Stream stream);

/// Writes to standard output: to a terminal as its text, coloured unless the environment variable
/// NO_COLOR is set to something; to anything else in UTF-8, byte for byte.
void Print(const view::StyledText& text);

/// Writes to standard error at once, in one piece.
void WriteError(std::string_view text);

/// Makes the standard streams take UTF-8 byte for byte while it lives.
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
