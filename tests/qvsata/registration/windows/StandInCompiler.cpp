// Stands for the system's MOF compiler: notes the names of its files, a line each, in the file
// QV_COMPILED, and fails on the file that QV_REFUSED names.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2 || !std::filesystem::exists(arguments[1])) {
        return 2;
    }
    const std::string name = std::filesystem::path(arguments[1]).filename().string();
    std::ofstream(Variable("QV_COMPILED"), std::ios::app | std::ios::binary) << name << '\n';
    if (name != Variable("QV_REFUSED")) {
        return 0;
    }
    std::puts("Error Number: 0x80041003, Facility: WMI\nCompiler returned error 0x80041003");
    return 1;
}
