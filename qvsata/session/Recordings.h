#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qv::tool {

/// Returns the path that a text in UTF-8 names.
std::filesystem::path FromUtf8(const std::string& text);

/// Returns whether a path names a folder.
bool IsFolder(const std::string& path);

/// Returns the recordings that a path names: a folder's JSON files and links by name, each as
/// FOLDER/NAME, but no pipes, devices and folders of such names; the path itself otherwise, whether
/// it exists or not. Throws CommandError for a folder without recordings or that cannot be read.
std::vector<std::string> RecordingsIn(const std::string& path);

/// Returns the recordings that several paths name, one path after the other. Throws as above.
std::vector<std::string> RecordingsIn(const std::vector<std::string>& paths);

/// Returns whether paths name a single recording, not a folder of any number.
bool NameOneRecording(const std::vector<std::string>& paths);

}  // namespace qv::tool
