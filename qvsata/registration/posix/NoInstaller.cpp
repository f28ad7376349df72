#include "qvsata/registration/Installer.h"

namespace qv::tool {

std::unique_ptr<Installer> InstallerOfThisMachine() {
    return nullptr;
}

}  // namespace qv::tool
