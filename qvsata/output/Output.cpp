#include "qvsata/output/Output.h"

#include "qvsata/system/Console.h"
#include "qvsata/view/text/Wrapping.h"

namespace qv::tool {

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
