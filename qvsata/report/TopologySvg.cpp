#include "qvsata/report/TopologySvg.h"

#include <cstddef>
#include <string_view>
#include <vector>

#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

// In the units of the picture, which are pixels where there is room.
constexpr std::size_t width = 352;
constexpr std::size_t boxHeight = 42;
constexpr std::size_t pitch = 50;   ///< from one box to the next
constexpr std::size_t indent = 16;  ///< of a part
constexpr std::size_t margin = 11;  ///< of the text in its box

/// A box and the one to which it is attached.
struct Box {
    const TopologyItem* item;
    std::size_t level;
    std::size_t parent;  ///< its place; that of the box itself for the first one
};

void Collect(const TopologyItem& item, std::size_t level, std::size_t parent,
             std::vector<Box>& boxes) {
    const std::size_t place = boxes.size();
    boxes.push_back({&item, level, parent});
    for (const TopologyItem& part : item.parts) {
        Collect(part, level + 1, place, boxes);
    }
}

std::string_view ClassOfStyle(view::Style style) {
    switch (style) {
        case view::Style::good:
            return "good";
        case view::Style::caution:
            return "caution";
        case view::Style::bad:
            return "bad";
        case view::Style::plain:
        case view::Style::faint:
            break;
    }
    return "plain";
}

/// Returns as much of a text as fits into a box.
std::string Fitted(std::string_view text, std::size_t columns) {
    constexpr std::size_t mostBytes = 512;
    std::string printable = view::Printable(text.substr(0, mostBytes));
    if (view::WidthOf(printable) <= columns) {
        return printable;
    }
    std::string fitted;
    std::size_t used = 1;
    for (std::string_view rest = printable;;) {
        const view::Character character = view::FirstCharacter(rest);
        used += view::ColumnsOf(character);
        if (used > columns) {
            return fitted + "…";
        }
        fitted += character.bytes;
        rest.remove_prefix(character.bytes.size());
    }
}

std::string Number(std::size_t number) {
    return std::to_string(number);
}

/// A line of text in a box.
struct TextLine {
    std::size_t y;
    std::size_t columns;  ///< that fit into the box
    const char* className;
};

void DrawText(Html& html, std::string_view text, const TextLine& line) {
    html.Inline("text", Fitted(text, line.columns),
                {{"x", Number(margin)}, {"y", Number(line.y)}, {"class", line.className}});
}

void DrawBox(Html& html, const Box& box, std::size_t y) {
    constexpr std::size_t nameLine = 17;
    constexpr std::size_t factsLine = 34;
    constexpr std::size_t onlyLine = 26;
    constexpr std::size_t wide = 8;  // a column of a name, and of facts, in common fonts
    constexpr std::size_t narrow = 7;
    const std::size_t x = box.level * indent;
    const std::size_t boxWidth = width - x;
    const std::size_t room = boxWidth - 2 * margin;
    // A picture of its own cuts what is too wide.
    const auto picture = html.In("svg", {{"x", Number(x)},
                                         {"y", Number(y)},
                                         {"width", Number(boxWidth)},
                                         {"height", Number(boxHeight)},
                                         {"class", std::string(ClassOfStyle(box.item->style))}});
    html.Raw(R"(<rect class="box" x=".5" y=".5" width=")" + Number(boxWidth - 1) + R"(" height=")" +
             Number(boxHeight - 1) +
             R"(" rx="6"/><rect class="bar" x="1" y="6" width="4" height=")" +
             Number(boxHeight - 12) + R"("/>)");
    const bool isOnly = box.item->facts.empty();
    DrawText(html, box.item->name, {isOnly ? onlyLine : nameLine, room / wide, "name"});
    if (!isOnly) {
        DrawText(html, box.item->facts, {factsLine, room / narrow, "facts"});
    }
}

void DrawLine(Html& html, const Box& box, std::size_t place) {
    const std::size_t x = (box.level - 1) * indent + indent / 2;
    html.Empty("path",
               {{"d", "M" + Number(x) + ' ' + Number(box.parent * pitch + boxHeight) + 'V' +
                          Number(place * pitch + boxHeight / 2) + 'h' + Number(indent / 2)}});
}

}  // namespace

void WriteTopologySvg(Html& html, const TopologyItem& computer, const std::string& id) {
    std::vector<Box> boxes;
    Collect(computer, 0, 0, boxes);
    const std::string height = Number((boxes.size() - 1) * pitch + boxHeight);
    const auto picture = html.In("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                                         {"role", "img"},
                                         {"aria-labelledby", id},
                                         {"width", Number(width)},
                                         {"height", height},
                                         {"viewBox", "0 0 " + Number(width) + ' ' + height}});
    html.Line("title", "The computer and what is attached to it, as a tree of boxes", {{"id", id}});
    for (std::size_t place = 1; place < boxes.size(); ++place) {
        DrawLine(html, boxes[place], place);
    }
    for (std::size_t place = 0; place < boxes.size(); ++place) {
        DrawBox(html, boxes[place], place * pitch);
    }
}

}  // namespace qv::report
