#include "qvsata/Output.h"

#include "qvsata/Console.h"
#include "qvsata/OutputJson.h"
#include "qvsata/OutputMof.h"
#include "qvsata/OutputText.h"

namespace qv::tool {

std::string FormatObjects(const service::ObjectList& objects, Format format) {
    switch (format) {
        case Format::json:
            return ObjectsAsJson(objects);
        case Format::mof:
            return ObjectsAsMof(objects);
        case Format::text:
            break;
    }
    return ObjectsAsText(objects);
}

void Print(const std::string& text) {
    Print(view::StyledText{{text}});
}

}  // namespace qv::tool
