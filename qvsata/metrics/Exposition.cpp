#include "qvsata/metrics/Exposition.h"

#include <array>
#include <charconv>
#include <cstddef>

#include "qvsata/view/text/Characters.h"

namespace qv::metrics {
namespace {

std::string Bounded(std::string text) {
    constexpr std::size_t mostBytes = 128;
    constexpr std::string_view mark = "…";
    if (text.size() > mostBytes) {
        const std::size_t kept = view::Beginning(text, mostBytes - mark.size()).size();
        text.replace(kept, std::string::npos, mark);
    }
    return text;
}

/// Returns a label's value as it stands between the quotes. A line feed is a code already.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        if (character == '\\' || character == '"') {
            escaped += '\\';
        }
        escaped += character;
    }
    return escaped;
}

std::string LabelsText(const std::vector<Label>& labels) {
    std::string text;
    for (const Label& label : labels) {
        if (!label.value.empty()) {
            text += text.empty() ? "{" : ",";
            text += label.name;
            text += "=\"" + Escaped(Bounded(view::Printable(label.value))) + '"';
        }
    }
    return text.empty() ? text : text + '}';
}

std::string NumberText(double value) {
    std::array<char, 32> text{};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return {text.data(), end};
}

}  // namespace

std::string ExpositionText(const std::vector<Family>& families) {
    std::string text;
    for (const Family& family : families) {
        if (family.samples.empty()) {
            continue;
        }
        text.append("# HELP ").append(family.name).append(" ").append(family.help);
        text.append("\n# TYPE ").append(family.name).append(" gauge\n");
        for (const Sample& sample : family.samples) {
            text.append(family.name).append(LabelsText(sample.labels));
            text.append(" ").append(NumberText(sample.value)).append("\n");
        }
    }
    return text;
}

}  // namespace qv::metrics
