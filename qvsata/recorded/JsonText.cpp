#include "qvsata/recorded/JsonText.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "qvsata/recorded/HostFile.h"
#include "source/Text.h"

namespace qv::service {
namespace {

using Json = nlohmann::ordered_json;

/// The text of a file that is parsed.
struct JsonSource {
    std::string_view text;
    const std::string& file;
    std::size_t read = 0;  ///< bytes that the parser has read

    /// Throws the error at one of the bytes, of which the first is 1.
    [[noreturn]] void FailAt(std::size_t byte, const std::string& reason) const {
        const std::string_view before = text.substr(0, byte == 0 ? 0 : byte - 1);
        const auto line = 1 + std::ranges::count(before, '\n');
        const std::size_t lineStart = before.find_last_of('\n');
        const std::size_t column =
            before.size() - (lineStart == std::string_view::npos ? 0 : lineStart + 1) + 1;
        throw HostFileError(file + ": line " + std::to_string(line) + ", column " +
                            std::to_string(column) + ": " + reason);
    }
};

/// Shows the parser the bytes of a text, and counts them: its events have no place.
class SourceIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = char;

    explicit SourceIterator(JsonSource* source) : source_(source) {}

    char operator*() const { return source_->text[source_->read]; }
    SourceIterator& operator++() {
        ++source_->read;
        return *this;
    }
    /// The other one is always the end.
    bool operator!=(const SourceIterator& /*end*/) const {
        return source_->read != source_->text.size();
    }

private:
    JsonSource* source_;
};

/// Returns the parser's message without its error number and without a copy of the input.
std::string SyntaxReason(std::string_view what) {
    const std::size_t detail = what.find(": ", what.find("column"));
    what = what.substr(0, what.find("; last read"));
    std::string reason = "not JSON";
    if (detail != std::string_view::npos) {
        reason.append(": ").append(what.substr(detail + 2));
    }
    return reason;
}

/// Builds a document from the parser's events. The JSON library's own builders search an object for
/// each new name, or an array at the end of each element, so their time grows as the square.
class DocumentBuilder {
public:
    DocumentBuilder(Json& root, const JsonSource& source, const JsonTaker& take)
        : root_(root), source_(source), take_(take) {}

    // The events, with the names that the parser requires.
    bool null() { return Add(nullptr); }
    bool boolean(bool value) { return Add(value); }
    bool number_integer(Json::number_integer_t value) { return Add(value); }
    bool number_unsigned(Json::number_unsigned_t value) { return Add(value); }
    bool number_float(Json::number_float_t value, const std::string&) { return Add(value); }
    bool string(std::string& value) { return Add(std::move(value)); }
    bool binary(const Json::binary_t&) { return false; }  // never in a text
    bool start_array(std::size_t) { return Open(Json::array()); }
    bool end_array() { return Close(); }
    bool start_object(std::size_t) { return Open(Json::object()); }
    bool end_object() { return Close(); }

    // Names that differ only in case would hide each other.
    bool key(std::string& name) {
        JsonLevel& level = levels_.back();
        if (!level.names.insert(FoldCase(name)).second) {
            source_.FailAt(source_.read, Json(name).dump() + " stands twice in one object");
        }
        level.around->get_ref<Json::object_t&>().emplace_back(std::move(name), nullptr);
        return true;
    }

    bool parse_error(std::size_t byte, const std::string&, const Json::exception& error) {
        const bool isRange = dynamic_cast<const Json::out_of_range*>(&error) != nullptr;
        source_.FailAt(byte, isRange ? "a number beyond all bounds" : SyntaxReason(error.what()));
    }

private:
    Json& Put(Json value) {
        if (levels_.empty()) {
            return root_ = std::move(value);
        }
        Json& parent = *levels_.back().around;
        if (parent.is_array()) {
            return parent.emplace_back(std::move(value));
        }
        return parent.get_ref<Json::object_t&>().back().second = std::move(value);
    }

    bool Add(Json value) {
        Complete(Put(std::move(value)));
        return true;
    }

    bool Open(Json value) {
        levels_.push_back({&Put(std::move(value))});
        return true;
    }

    bool Close() {
        Json& value = *levels_.back().around;
        levels_.pop_back();
        Complete(value);
        return true;
    }

    void Complete(Json& value) {
        if (levels_.empty()) {
            return;
        }
        JsonLevel& level = levels_.back();
        if (take_(levels_, value)) {
            level.IsArray() ? level.around->get_ref<Json::array_t&>().pop_back()
                            : level.around->get_ref<Json::object_t&>().pop_back();
        }
        ++level.place;
    }

    Json& root_;
    const JsonSource& source_;
    const JsonTaker& take_;
    std::vector<JsonLevel> levels_;  ///< from the root to the innermost
};

}  // namespace

Json ParseJson(std::string_view text, const std::string& file, const JsonTaker& take) {
    Json root;
    JsonSource source{text, file};
    DocumentBuilder builder(root, source, take);
    Json::sax_parse(SourceIterator(&source), SourceIterator(&source), &builder);
    // To the parser this character is the end.
    if (const std::size_t end = text.find('\0'); end != std::string_view::npos) {
        source.FailAt(end + 1, "not JSON: a NUL character");
    }
    return root;
}

}  // namespace qv::service
