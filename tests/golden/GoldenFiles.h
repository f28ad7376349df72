#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qv::test {

/// The recorded hosts of the hosts folder.
std::vector<std::filesystem::path> ShippedHosts();

/// The recordings of real machines in tests/hosts.
std::vector<std::filesystem::path> RealMachines();

/// The text of tests/golden/<name>.txt; empty when there is no such file.
std::string ReadGolden(std::string_view name);

/// Makes `text` what tests/golden/<name>.txt holds when the process was started to update the
/// golden files: with QV_UPDATE_GOLDEN=1 in its environment. Otherwise does nothing.
void UpdateGolden(std::string_view name, std::string_view text);

/// The first line in which two texts differ, with its number and both sides of it.
std::string FirstDifference(std::string_view published, std::string_view golden);

/// A host's file name as GoogleTest wants a parameter's name.
inline std::string HostName(const testing::TestParamInfo<std::filesystem::path>& host) {
    std::string name = host.param.stem().string();
    std::ranges::replace(name, '-', '_');
    return name;
}

}  // namespace qv::test
