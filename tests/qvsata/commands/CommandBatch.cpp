// Runs the command lines of a file, whose arguments are separated by tabs. Prints each command's
// output, errors and exit code.
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "qvsata/commands/Program.h"
#include "qvsata/system/Console.h"

namespace {

std::vector<std::string> Split(const std::string& line) {
    std::vector<std::string> arguments{{}};
    for (const char character : line) {
        if (character == '\t') {
            arguments.emplace_back();
        } else {
            arguments.back() += character;
        }
    }
    return arguments;
}

}  // namespace

int main(int count, char** arguments) {
    const qv::tool::Utf8Streams streams;
    std::ifstream lines(count == 2 ? arguments[1] : "");
    for (std::string line; std::getline(lines, line);) {
        const int exitCode = qv::tool::RunCommand(Split(line));
        std::fflush(stdout);
        std::fprintf(stderr, "-- %d: %s\n", exitCode, line.c_str());
        std::fflush(stderr);
    }
    return lines.eof() ? 0 : 1;
}
