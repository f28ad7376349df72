#pragma once

#include <chrono>
#include <string>

#include "qvsata/view/events/WaitingText.h"

namespace qv::tool {

/// Shows on standard error what the watch waits for and for how long. On a console it is one line
/// that is rewritten and blanked at the end, elsewhere one line per wait.
class WaitingLine {
public:
    using Clock = std::chrono::steady_clock;

    WaitingLine();
    WaitingLine(const WaitingLine&) = delete;
    WaitingLine& operator=(const WaitingLine&) = delete;
    ~WaitingLine() { End(); }

    /// Begins a wait of that length.
    void Begin(const view::SeenRecording& seen, std::chrono::milliseconds length);

    /// Rewrites the line on a console with the remaining time.
    void Update();

    /// Ends the wait: blanks the line on a console.
    void End();

    /// Returns whether Update must be called from time to time.
    bool IsRewritten() const { return onConsole_; }

private:
    bool onConsole_;
    view::SeenRecording seen_;
    Clock::time_point end_;
    std::size_t width_ = 0;  ///< of the text on the console
};

}  // namespace qv::tool
