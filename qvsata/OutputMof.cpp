#include "qvsata/OutputMof.h"

#include "platform/windows/Bstr.h"
#include "platform/windows/Text.h"

namespace qv::tool {

std::string ObjectsAsMof(const service::ObjectList& objects) {
    std::string text;
    for (const auto& object : objects) {
        windows::Bstr mof;
        if (SUCCEEDED(object->GetObjectText(0, mof.Receive()))) {
            text += text.empty() ? "" : "\n";
            text += windows::ToNarrow(mof.View(), CP_UTF8);
        }
    }
    return text;
}

}  // namespace qv::tool
