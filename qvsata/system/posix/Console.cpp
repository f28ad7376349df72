#include "qvsata/system/Console.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "qvsata/view/text/Colour.h"

namespace qv::tool {
namespace {

int DescriptorOf(Stream stream) {
    return stream == Stream::output ? STDOUT_FILENO : STDERR_FILENO;
}

/// The control sequence that begins a style (ECMA-48, select graphic rendition).
const char* Sequence(view::Style style) {
    switch (style) {
        case view::Style::plain:
            return "\x1b[0m";
        case view::Style::good:
            return "\x1b[32m";
        case view::Style::caution:
            return "\x1b[33m";
        case view::Style::bad:
            return "\x1b[91m";
        case view::Style::faint:
            return "\x1b[90m";
    }
    return "";
}

std::string ColouredText(const view::StyledText& text) {
    std::string coloured;
    for (const view::Span& span : text) {
        if (span.style == view::Style::plain) {
            coloured += span.text;
        } else {
            coloured.append(Sequence(span.style)).append(span.text);
            coloured.append(Sequence(view::Style::plain));
        }
    }
    return coloured;
}

}  // namespace

bool IsTerminal(Stream stream) {
    return isatty(DescriptorOf(stream)) == 1;
}

std::optional<std::size_t> ColumnsOf(Stream stream) {
    winsize size{};
    if (ioctl(DescriptorOf(stream), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) {
        return std::nullopt;
    }
    return size.ws_col;
}

void Print(const view::StyledText& text) {
    const bool coloured = view::WantsColour(IsTerminal(Stream::output), std::getenv("NO_COLOR"));
    const std::string written = coloured ? ColouredText(text) : view::PlainText(text);
    std::fwrite(written.data(), 1, written.size(), stdout);
}

void WriteError(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

Utf8Streams::Utf8Streams() = default;

Utf8Streams::~Utf8Streams() {
    std::fflush(stdout);
}

}  // namespace qv::tool
