#include "qvsata/output/WaitingLine.h"

#include "qvsata/system/Console.h"
#include "qvsata/view/text/Columns.h"

namespace qv::tool {
WaitingLine::WaitingLine() : onConsole_(IsTerminal(Stream::errors)) {}

void WaitingLine::Begin(const view::SeenRecording& seen, std::chrono::milliseconds length) {
    seen_ = seen;
    end_ = Clock::now() + length;
    if (onConsole_) {
        Update();
    } else {
        WriteError("qvsata: " + view::WaitingText(seen_, length) + '\n');
    }
}

void WaitingLine::Update() {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - Clock::now());
    if (!onConsole_ || left.count() <= 0) {
        return;
    }
    const std::string text = view::WaitingText(seen_, left);
    WriteError('\r' + text + view::Padding(width_, text));
    width_ = text.size();
}

void WaitingLine::End() {
    if (width_ != 0) {
        WriteError('\r' + std::string(width_, ' ') + '\r');
        width_ = 0;
    }
}

}  // namespace qv::tool
