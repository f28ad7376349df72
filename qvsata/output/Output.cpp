#include "qvsata/output/Output.h"

#include "qvsata/output/OutputJson.h"
#include "qvsata/output/OutputMof.h"
#include "qvsata/output/OutputText.h"
#include "qvsata/system/Console.h"
#include "qvsata/view/text/Wrapping.h"

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

void PrintFitted(const view::StyledText& text) {
    Print(view::Wrapped(text, ColumnsOf(Stream::output)));
}

void WriteErrorFitted(const std::string& text) {
    WriteError(view::PlainText(view::Wrapped({{text}}, ColumnsOf(Stream::errors))));
}

}  // namespace qv::tool
