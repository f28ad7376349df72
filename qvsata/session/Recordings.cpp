#include "qvsata/session/Recordings.h"

#include <algorithm>
#include <iterator>
#include <system_error>

#include "qvsata/cim/Utf8.h"
#include "qvsata/session/MachineRun.h"
#include "source/Text.h"

namespace qv::tool {

std::filesystem::path FromUtf8(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

bool IsFolder(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_directory(FromUtf8(path), error);
}

namespace {

/// Returns whether an entry of a folder is a recording by its name, and no pipe, device or folder.
bool IsRecording(const std::filesystem::directory_entry& entry) {
    std::error_code error;
    const std::filesystem::file_status status = entry.status(error);
    return EqualsIgnoringCase(service::Utf8OfPath(entry.path().extension()), ".json") &&
           (is_regular_file(status) || !exists(status));
}

}  // namespace

std::vector<std::string> RecordingsIn(const std::string& path) {
    if (!IsFolder(path)) {
        return {path};
    }
    const std::string folder = path.ends_with('/') || path.ends_with('\\') ? path : path + '/';
    std::vector<std::string> files;
    std::error_code error;
    for (std::filesystem::directory_iterator file(FromUtf8(path), error), end;
         !error && file != end; file.increment(error)) {
        if (IsRecording(*file)) {
            files.push_back(folder + service::Utf8OfPath(file->path().filename()));
        }
    }
    if (error) {
        throw CommandError(path + ": cannot be read: " + error.message());
    }
    if (files.empty()) {
        throw CommandError(path + ": a folder without recordings (*.json)");
    }
    std::ranges::sort(files);
    return files;
}

std::vector<std::string> RecordingsIn(const std::vector<std::string>& paths) {
    std::vector<std::string> recordings;
    for (const std::string& path : paths) {
        std::ranges::move(RecordingsIn(path), std::back_inserter(recordings));
    }
    return recordings;
}

bool NameOneRecording(const std::vector<std::string>& paths) {
    return paths.size() == 1 && !IsFolder(paths.front());
}

}  // namespace qv::tool
