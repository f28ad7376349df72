#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv::test {

/// Returns the recorded hosts of the hosts folder.
std::vector<std::filesystem::path> ShippedHosts();

/// Returns the recordings of real machines in tests/hosts.
std::vector<std::filesystem::path> RealMachines();

/// Returns the text of tests/golden/<name>.txt; empty if the file is missing.
std::string ReadGolden(std::string_view name);

/// Writes `text` to tests/golden/<name>.txt if the process runs with QV_UPDATE_GOLDEN=1 in its
/// environment. Otherwise does nothing.
void UpdateGolden(std::string_view name, std::string_view text);

/// Returns the first line in which two texts differ, with its number and both versions.
std::string FirstDifference(std::string_view published, std::string_view golden);

/// Returns a host's file name in the form that GoogleTest requires of a parameter's name.
inline std::string HostName(const testing::TestParamInfo<std::filesystem::path>& host) {
    std::string name = host.param.stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

}  // namespace qv::test
