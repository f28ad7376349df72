#include "qvsata/system/Process.h"

namespace qv::tool {

std::vector<std::string> Arguments(int count, const char* const* values) {
    return {values + 1, values + count};
}

std::filesystem::path ProgramFolder() {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

}  // namespace qv::tool
