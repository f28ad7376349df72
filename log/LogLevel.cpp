#include "log/LogLevel.h"

#include <array>

namespace qv {
namespace {

constexpr std::array<std::wstring_view, 6> names = {L"N/A",         L"Debug",   L"Verbose",
                                                    L"Information", L"Warning", L"Error"};

}  // namespace

std::wstring_view NameOf(LogLevel level) {
    const auto index = static_cast<std::size_t>(level);
    return index < names.size() ? names[index] : names.front();
}

}  // namespace qv
