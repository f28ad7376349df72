#include "qvsata/output/OutputMof.h"

#include "qvsata/mof/MofText.h"

namespace qv::tool {

std::string ObjectsAsMof(const service::ObjectList& objects) {
    std::string text;
    for (const auto& object : objects) {
        text += text.empty() ? "" : "\n";
        text += service::ObjectAsMof(*object);
    }
    return text;
}

}  // namespace qv::tool
