#include "qvsata/output/Output.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "qvsata/system/Console.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Wrapping.h"

namespace qv::tool {
namespace {

std::string ShownLines(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        shown += view::Printable(text.substr(0, length));
        text.remove_prefix(length);
        if (!text.empty()) {
            shown += '\n';
            text.remove_prefix(1);
        }
    }
    return shown;
}

}  // namespace

void Print(const std::string& text) {
    Print(view::StyledText{{text}});
}

void PrintFitted(const view::StyledText& text) {
    Print(view::Wrapped(text, ColumnsOf(Stream::output)));
}

void WriteErrorFitted(const std::string& text) {
    std::fflush(stdout);  // both streams may lead to one place
    WriteError(view::PlainText(view::Wrapped({{ShownLines(text)}}, ColumnsOf(Stream::errors))));
}

}  // namespace qv::tool
