#include "qvsata/view/text/StyledText.h"

namespace qv::view {

std::string PlainText(const StyledText& text) {
    std::string plain;
    for (const Span& span : text) {
        plain += span.text;
    }
    return plain;
}

}  // namespace qv::view
