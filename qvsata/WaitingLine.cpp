#include "qvsata/WaitingLine.h"

#include <windows.h>

#include "qvsata/Console.h"
#include "qvsata/view/Columns.h"

namespace qv::tool {
namespace {

/// Writes at once, where the C runtime would write byte by byte.
void Write(const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()),
              &written, nullptr);
}

}  // namespace

WaitingLine::WaitingLine() : onConsole_(ConsoleOf(STD_ERROR_HANDLE) != nullptr) {}

void WaitingLine::Begin(const view::SeenRecording& seen, std::chrono::milliseconds length) {
    seen_ = seen;
    end_ = Clock::now() + length;
    if (onConsole_) {
        Update();
    } else {
        Write("qvsata: " + view::WaitingText(seen_, length) + '\n');
    }
}

void WaitingLine::Update() {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now());
    if (!onConsole_ || left.count() <= 0) {
        return;
    }
    const std::string text = view::WaitingText(seen_, left);
    Write('\r' + text + view::Padding(width_, text));
    width_ = text.size();
}

void WaitingLine::End() {
    if (width_ != 0) {
        Write('\r' + std::string(width_, ' ') + '\r');
        width_ = 0;
    }
}

}  // namespace qv::tool
