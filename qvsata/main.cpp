#include "qvsata/Program.h"

int main() {
    return qv::tool::RunProgram();
}
