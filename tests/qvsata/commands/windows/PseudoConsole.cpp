#include "tests/qvsata/commands/windows/PseudoConsole.h"

#include <stdexcept>
#include <utility>

namespace qv::test {
namespace {

// The headers declare them only if Windows 10 is the oldest supported system.
constexpr DWORD_PTR pseudoConsoleAttribute = 0x00020016;

template <typename Function>
Function Find(const char* name) {
    const auto function = reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
    if (function == nullptr) {
        throw std::runtime_error("the system has no pseudo consoles");
    }
    return function;
}

using CreateFunction = HRESULT(WINAPI*)(COORD size, HANDLE input, HANDLE output, DWORD flags,
                                        void** console);
using CloseFunction = void(WINAPI*)(void* console);

void Check(bool succeeded) {
    if (!succeeded) {
        throw std::runtime_error("no pseudo console");
    }
}

}  // namespace

PseudoConsole::PseudoConsole() {
    windows::KernelHandle input;
    windows::KernelHandle output;
    Check(CreatePipe(input.Receive(), keyboard_.Receive(), nullptr, 0) != FALSE);
    windows::KernelHandle screen;
    Check(CreatePipe(screen.Receive(), output.Receive(), nullptr, 0) != FALSE);
    Check(SUCCEEDED(Find<CreateFunction>("CreatePseudoConsole")({80, 25}, input.Get(), output.Get(),
                                                                0, &console_)));
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    attributes_.resize(size);
    screen_.emplace(std::move(screen));
    Check(InitializeProcThreadAttributeList(Attributes(), 1, 0, &size) &&
          UpdateProcThreadAttribute(Attributes(), 0, pseudoConsoleAttribute, console_,
                                    sizeof console_, nullptr, nullptr));
}

PseudoConsole::~PseudoConsole() {
    DeleteProcThreadAttributeList(Attributes());
    Close();
}

std::string PseudoConsole::Close() {
    if (console_ != nullptr) {
        Find<CloseFunction>("ClosePseudoConsole")(std::exchange(console_, nullptr));
    }
    return screen_->Finish();
}

LPPROC_THREAD_ATTRIBUTE_LIST PseudoConsole::Attributes() const {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(attributes_.data());
}

void PseudoConsole::PressCtrlC() const {
    DWORD written = 0;
    ::WriteFile(keyboard_.Get(), "\x03", 1, &written, nullptr);
}

}  // namespace qv::test
