#include "qvsata/view/text/Wrapping.h"

#include <algorithm>
#include <utility>

#include "qvsata/view/text/Columns.h"

namespace qv::view {
namespace {

/// Copies pieces of text, and breaks the line before a word that would go past the last column.
class Wrapper {
public:
    explicit Wrapper(std::size_t columns) : columns_(columns) {}

    void Add(const Span& span) {
        for (std::size_t begin = 0; begin < span.text.size();) {
            const char first = span.text[begin];
            std::size_t end = begin + 1;
            if (first == ' ') {
                end = std::min(span.text.find_first_not_of(' ', begin), span.text.size());
            } else if (first != '\n') {
                end = std::min(span.text.find_first_of(" \n", begin), span.text.size());
            }
            AddPiece({span.text.substr(begin, end - begin), span.style});
            begin = end;
        }
    }

    /// Ends the text.
    StyledText Take() {
        Flush();
        return std::move(wrapped_);
    }

private:
    /// Takes a line feed, blanks, or a word or a part of one: a word may have several styles.
    void AddPiece(Span piece) {
        const char first = piece.text.front();
        if (first == '\n') {
            Flush();
            Append(piece);
            used_ = 0;
            indent_ = 0;
            isAtBegin_ = true;
        } else if (first == ' ') {
            Flush();
            indent_ = isAtBegin_ ? piece.text.size() : indent_;
            blanks_ = std::move(piece);
        } else {
            word_.push_back(std::move(piece));
        }
    }

    void Flush() {
        std::size_t width = 0;
        for (const Span& part : word_) {
            width += WidthOf(part.text);
        }
        constexpr std::size_t deeper = 4;
        const std::size_t blanks = blanks_.text.size();
        if (width > 0 && !isAtBegin_ && used_ + blanks + width > columns_) {
            Append({'\n' + std::string(indent_ + deeper, ' ')});
            used_ = indent_ + deeper;
        } else {
            Append(blanks_);
            used_ += blanks;
        }
        blanks_ = {};
        if (word_.empty()) {
            return;
        }
        std::ranges::for_each(word_, [this](const Span& part) { Append(part); });
        word_.clear();
        used_ += width;
        isAtBegin_ = false;
    }

    /// Appends to the last piece if that has the same style, so that a terminal gets each style
    /// once.
    void Append(const Span& piece) {
        if (!wrapped_.empty() && wrapped_.back().style == piece.style) {
            wrapped_.back().text += piece.text;
        } else if (!piece.text.empty()) {
            wrapped_.push_back(piece);
        }
    }

    const std::size_t columns_;
    StyledText wrapped_;
    StyledText word_;         ///< the word that has not ended
    Span blanks_;             ///< before the word
    std::size_t used_ = 0;    ///< columns of the line
    std::size_t indent_ = 0;  ///< of the line
    bool isAtBegin_ = true;   ///< whether the line has no word yet
};

}  // namespace

StyledText Wrapped(const StyledText& text, std::optional<std::size_t> columns) {
    if (!columns) {
        return text;
    }
    Wrapper wrapper(*columns);
    for (const Span& span : text) {
        wrapper.Add(span);
    }
    return wrapper.Take();
}

}  // namespace qv::view
