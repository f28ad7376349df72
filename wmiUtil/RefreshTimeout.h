#pragma once

#include <cstdint>

namespace qv {

/// Returns the setting "RefreshTimeout" of HKLM\SOFTWARE\Corvane\WMI Providers\SA, as
/// RefreshTimeoutOf takes it; 0 if none is set.
std::uint32_t ReadRefreshTimeout();

}  // namespace qv
