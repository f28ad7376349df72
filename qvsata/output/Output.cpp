#include "qvsata/output/Output.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

#include "qvsata/system/Console.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Wrapping.h"

namespace qv::tool {
namespace {

// A path that `get` takes, of fewer than 1,000 characters, is printed whole.
constexpr view::TextLimits errorLine{2'000, 1'000, 500};

std::string ShownLine(std::string_view line) {
    return view::Shortened(view::Printable(line), errorLine);
}

std::string ShownLines(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        shown += ShownLine(text.substr(0, length));
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
