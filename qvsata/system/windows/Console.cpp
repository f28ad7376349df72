#include "qvsata/system/Console.h"

#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "platform/windows/Text.h"
#include "qvsata/view/text/Colour.h"

namespace qv::tool {
namespace {

/// Restores a console's colours on destruction.
class ConsoleWriter {
public:
    ConsoleWriter(HANDLE console, bool coloured) : console_(console), coloured_(coloured) {
        CONSOLE_SCREEN_BUFFER_INFO info{};
        if (GetConsoleScreenBufferInfo(console_, &info) != FALSE) {
            usual_ = info.wAttributes;
        }
    }
    ConsoleWriter(const ConsoleWriter&) = delete;
    ConsoleWriter& operator=(const ConsoleWriter&) = delete;
    ~ConsoleWriter() { SetColour(view::Style::plain); }

    void Write(const view::Span& span) {
        SetColour(span.style);
        std::wstring text = windows::ToWide(span.text, CP_UTF8);
        std::wstring_view rest = text;
        // A console refuses a write that is too large.
        constexpr std::size_t most = 8192;
        while (!rest.empty()) {
            DWORD written = 0;
            const auto part = static_cast<DWORD>(std::min(rest.size(), most));
            if (WriteConsoleW(console_, rest.data(), part, &written, nullptr) == FALSE ||
                written == 0) {
                return;
            }
            rest.remove_prefix(written);
        }
    }

private:
    // Attributes instead of escape sequences, because consoles before Windows 10 and Wine's know
    // only these.
    void SetColour(view::Style style) {
        if (!coloured_) {
            return;
        }
        constexpr WORD colours =
            FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_BLUE | FOREGROUND_INTENSITY;
        const auto background = static_cast<WORD>(usual_ & ~colours);
        switch (style) {
            case view::Style::plain:
                SetConsoleTextAttribute(console_, usual_);
                return;
            case view::Style::good:
                SetConsoleTextAttribute(console_, background | FOREGROUND_GREEN);
                return;
            case view::Style::caution:
                SetConsoleTextAttribute(console_, background | FOREGROUND_RED | FOREGROUND_GREEN |
                                                      FOREGROUND_INTENSITY);
                return;
            case view::Style::bad:
                SetConsoleTextAttribute(console_,
                                        background | FOREGROUND_RED | FOREGROUND_INTENSITY);
                return;
            case view::Style::faint:
                SetConsoleTextAttribute(console_, background | FOREGROUND_INTENSITY);
                return;
        }
    }

    HANDLE console_;
    bool coloured_;
    WORD usual_ = FOREGROUND_RED | FOREGROUND_GREEN | FOREGROUND_BLUE;
};

HANDLE HandleOf(Stream stream) {
    return GetStdHandle(stream == Stream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

/// Returns the console of a stream; null if it is not a console.
HANDLE ConsoleOf(Stream stream) {
    HANDLE handle = HandleOf(stream);
    DWORD mode = 0;
    const bool isConsole =
        GetFileType(handle) == FILE_TYPE_CHAR && GetConsoleMode(handle, &mode) != FALSE;
    return isConsole ? handle : nullptr;
}

}  // namespace

bool IsTerminal(Stream stream) {
    return ConsoleOf(stream) != nullptr;
}

std::optional<std::size_t> ColumnsOf(Stream stream) {
    HANDLE console = ConsoleOf(stream);
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (console == nullptr || GetConsoleScreenBufferInfo(console, &info) == FALSE) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

void Print(const view::StyledText& text) {
    HANDLE console = ConsoleOf(Stream::output);
    const bool coloured = view::WantsColour(console != nullptr, std::getenv("NO_COLOR"));
    if (console != nullptr) {
        std::fflush(stdout);
        ConsoleWriter writer(console, coloured);
        std::ranges::for_each(text, [&writer](const view::Span& span) { writer.Write(span); });
        return;
    }
    const std::string plain = view::PlainText(text);
    std::fwrite(plain.data(), 1, plain.size(), stdout);
}

void WriteError(std::string_view text) {
    // The C runtime would write byte by byte.
    DWORD written = 0;
    WriteFile(HandleOf(Stream::errors), text.data(), static_cast<DWORD>(text.size()), &written,
              nullptr);
}

Utf8Streams::Utf8Streams() : usualCodePage_(GetConsoleOutputCP()) {
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

Utf8Streams::~Utf8Streams() {
    std::fflush(stdout);
    SetConsoleOutputCP(usualCodePage_);
}

}  // namespace qv::tool
