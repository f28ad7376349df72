#pragma once

#include <chrono>
#include <string>

#include "qvsata/view/WaitingText.h"

namespace qv::tool {

/// Shows on standard error what is waited for and for how long: on a console a line that is
/// rewritten and goes when the waiting is over, anywhere else one line for each wait.
class WaitingLine {
public:
    using Clock = std::chrono::steady_clock;

    WaitingLine();
    WaitingLine(const WaitingLine&) = delete;
    WaitingLine& operator=(const WaitingLine&) = delete;
    ~WaitingLine() { End(); }

    /// A wait of that length begins.
    void Begin(const view::SeenRecording& seen, std::chrono::milliseconds length);

    /// Rewrites the line with the time that is left.
    void Update();

    /// The wait is over: a line on a console is blanked.
    void End();

    /// Whether the line has to be rewritten from time to time.
    bool IsRewritten() const { return onConsole_; }

private:
    bool onConsole_;
    view::SeenRecording seen_;
    Clock::time_point end_;
    std::size_t width_ = 0;  ///< of what stands on the console
};

}  // namespace qv::tool
