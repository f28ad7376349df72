#include "qvsata/hosting/substitutes/MonitorPauses.h"

#include <atomic>

namespace qv::service {
namespace {

constexpr DWORD shortestPause = 1000;

// The state of the replaced system function. It is global because the system passes it nothing that
// could lead to an object.
struct Held {
    windows::KernelHandle begun{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    windows::KernelHandle letGo{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
    std::atomic<DWORD> length = 0;
    std::atomic<bool> isSkipped = false;
};

Held& Pause() {
    static Held held;
    return held;
}

void WINAPI HoldAndSleep(DWORD milliseconds) {
    if (milliseconds >= shortestPause) {
        Held& pause = Pause();
        pause.length = milliseconds;
        SetEvent(pause.begun.Get());
        WaitForSingleObject(pause.letGo.Get(), INFINITE);
        if (pause.isSkipped) {
            return;
        }
    }
    Sleep(milliseconds);
}

}  // namespace

MonitorPauses::MonitorPauses(HMODULE library)
    : patch_(library, "Sleep", reinterpret_cast<ImportPatch::Function>(&HoldAndSleep)) {
    ResetEvent(Pause().begun.Get());
    ResetEvent(Pause().letGo.Get());
}

HANDLE MonitorPauses::CycleOver() const {
    return Pause().begun.Get();
}

std::chrono::milliseconds MonitorPauses::Length() const {
    return std::chrono::milliseconds(Pause().length);
}

void MonitorPauses::LetGo() {
    Pause().isSkipped = false;
    SetEvent(Pause().letGo.Get());
}

void MonitorPauses::Hurry() {
    Pause().isSkipped = true;
    SetEvent(Pause().letGo.Get());
}

}  // namespace qv::service
