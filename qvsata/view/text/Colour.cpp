#include "qvsata/view/text/Colour.h"

namespace qv::view {

bool WantsColour(bool isTerminal, const char* noColour) {
    return isTerminal && (noColour == nullptr || *noColour == '\0');
}

}  // namespace qv::view
