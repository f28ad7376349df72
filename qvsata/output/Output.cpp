#include "qvsata/output/Output.h"

#include <cstdio>

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
    std::fflush(stdout);  // both streams may lead to one place
    WriteError(view::PlainText(view::Wrapped({{text}}, ColumnsOf(Stream::errors))));
}

}  // namespace qv::tool
