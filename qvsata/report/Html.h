#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qv::report {

/// Writes HTML that is well-formed XML, too. Whatever a text or the value of an attribute says, it
/// is shown as text: markup is escaped, characters that would control the reader become codes
/// (view::Printable), and of a long text the middle is left out.
class Html {
public:
    using Attributes = std::vector<std::pair<std::string_view, std::string>>;

    /// An element that ends with this object's life.
    class [[nodiscard]] Element {
    public:
        Element(Html& html, std::string_view name) : html_(html), name_(name) {}
        Element(const Element&) = delete;
        Element& operator=(const Element&) = delete;
        ~Element() { html_.End(name_); }

    private:
        Html& html_;
        std::string_view name_;
    };

    /// @param longest the number of characters from which on a text is cut
    explicit Html(std::size_t longest) : longest_(longest) {}

    /// Begins an element on a line of its own.
    /// @param name a literal
    Element In(std::string_view name, const Attributes& attributes = {});
    /// Writes an element with a text, on a line of its own.
    void Line(std::string_view name, std::string_view text, const Attributes& attributes = {});
    /// Writes an element with a text in the present line.
    void Inline(std::string_view name, std::string_view text, const Attributes& attributes = {});
    /// Writes an element without content, on a line of its own.
    void Empty(std::string_view name, const Attributes& attributes);
    void Text(std::string_view text);
    /// Writes HTML as it is: the style sheet, and what another writer made.
    void Raw(std::string_view html) { html_ += html; }

    std::string Take() { return std::move(html_); }

private:
    void Begin(std::string_view name, const Attributes& attributes, std::string_view end = ">");
    void End(std::string_view name);

    std::string html_;
    std::size_t longest_;
};

/// Returns the text if it has at most `most` characters; otherwise its beginning and its end, and
/// between them the number of characters that are left out.
std::string Shortened(std::string_view text, std::size_t most);

}  // namespace qv::report
