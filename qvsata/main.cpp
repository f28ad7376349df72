#include "qvsata/commands/Program.h"

int main(int count, char** arguments) {
    return qv::tool::RunProgram(count, arguments);
}
