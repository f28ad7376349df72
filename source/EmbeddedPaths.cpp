#include "source/EmbeddedPaths.h"

#include <thread>

namespace qv {

bool ReduceFirstEmbeddedPath(std::string& relativePath) {
    const auto run = relativePath.find(R"(\\\\)");
    if (run == std::string::npos) {
        return false;
    }
    const auto colon = relativePath.find(':', run);
    if (colon != std::string::npos) {
        relativePath.erase(run, colon - run + 1);
    }
    return true;
}

void ReduceEmbeddedPaths(std::string& relativePath) {
    while (ReduceFirstEmbeddedPath(relativePath)) {
        std::this_thread::yield();
    }
}

}  // namespace qv
