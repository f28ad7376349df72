#include "tests/reference/Reference.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "NativeAPI/CapabilityMap.h"
#include "catalogue/Associations.h"
#include "catalogue/Classes.h"
#include "events/DiskChanges.h"
#include "source/StatusMap.h"

namespace qv::test {
namespace {

using service::PropertyDefinition;

constexpr std::string_view indication = "QV_SATADeviceIndication";

std::string Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    return first == std::string_view::npos
               ? std::string()
               : std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// Returns the cells of a line, which "|" separates; empty cells up to three.
std::array<std::string, 3> Cells(std::string_view line) {
    std::array<std::string, 3> cells;
    for (std::string& cell : cells) {
        const auto end = std::min(line.find('|'), line.size());
        cell = Trimmed(line.substr(0, end));
        line.remove_prefix(std::min(end + 1, line.size()));
    }
    return cells;
}

const ClassNote* NoteOf(const std::vector<ClassNote>& notes, std::string_view className) {
    const auto found = std::ranges::find(notes, className, &ClassNote::className);
    return found == notes.end() ? nullptr : &*found;
}

std::string Code(std::string_view text) {
    return "`" + std::string(text) + "`";
}

std::string TypeOf(const PropertyDefinition& property) {
    return std::string(service::CimTypeName(property.type)) + (property.isArray ? "[]" : "");
}

std::string DescriptionOf(const std::vector<service::Qualifier>& qualifiers) {
    const service::Qualifier* const found = service::FindQualifier(qualifiers, "Description");
    return found == nullptr ? std::string() : std::get<std::string>(found->value);
}

/// Returns two texts, either of which may be empty, as the cell of a table.
std::string Cell(std::string first, const std::string& second) {
    if (first.ends_with('.')) {
        first.pop_back();
    }
    return first + (first.empty() || second.empty() ? "" : "; ") + second;
}

std::string Join(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + Code(name);
    }
    return text;
}

/// Breaks a text between words into lines of at most 110 characters.
std::string Wrapped(const std::string& text) {
    constexpr std::size_t width = 110;
    std::istringstream words(text);
    std::string lines;
    std::size_t column = 0;
    for (std::string word; words >> word; column += word.size()) {
        if (column != 0 && column + 1 + word.size() > width) {
            lines += '\n';
            column = 0;
        } else if (column != 0) {
            lines += ' ';
            ++column;
        }
        lines += word;
    }
    return lines + '\n';
}

/// Writes the sections of the reference.
class Reference {
public:
    Reference(const std::vector<ClassNote>& notes, const service::ClassRepository& classes)
        : notes_(notes), classes_(classes) {}

    void WriteInstanceClass(std::string_view className) {
        WriteHeading(className);
        WriteProperties(className);
        text_ << Wrapped("Keys in a path, in this order: " + Join(Keys(className)) + ".") << '\n';
        WriteUnpublished(className);
    }

    void WriteAssociation(const Association& association) {
        WriteHeading(association.name);
        text_ << "| reference (key) | to | compared property |\n| --- | --- | --- |\n";
        WriteEnd(association.first);
        WriteEnd(association.second);
        if (association.HasThreeEnds()) {
            WriteEnd(association.third);
        }
        text_ << '\n'
              << Wrapped("Joined where " +
                         Condition(association.first, association.rule, association.second) +
                         (association.HasThreeEnds()
                              ? " and " + Condition(association.second, association.thirdRule,
                                                    association.third)
                              : "") +
                         ".")
              << '\n';
        if (!association.added.name.empty()) {
            WriteProperties(association.name);
        }
        WriteUnpublished(association.name);
    }

    void WriteIndication() {
        WriteHeading(indication);
        WriteProperties(indication);
        WriteUnpublished(indication);
    }

    void WriteStatusCodes() {
        text_ << "## Status codes\n\n"
              << Wrapped(
                     "`OperationalStatus` has one code, that of the system's `Status` text, which "
                     "`StatusDescriptions` holds as it is. Letter case counts. A text outside the "
                     "table has no code. The event is the one that a disk raises when its status "
                     "becomes this one from a known other one; for a text without a code it is "
                     "that of code 0.")
              << "\n| `Status` | code | in CIM | event |\n| --- | --- | --- | --- |\n";
        for (const std::string_view status :
             {"OK", "Service", "Degraded", "Stressed", "Pred Fail", "Error", "NonRecover",
              "Lost Comm", "No Contact", "Unknown"}) {
            std::vector<std::string> codes;
            std::vector<std::string> descriptions;
            const auto code = MapStatusToOperationalStatus(status, codes, descriptions);
            constexpr std::uint32_t anotherKnown = 4;
            text_ << "| " << status << " | " << code << " | " << CimStatus(code) << " | "
                  << EventOfStatusChange(anotherKnown, static_cast<std::uint32_t>(code)) << " |\n";
        }
        text_ << '\n';
    }

    void WriteCapabilities() {
        text_ << "## Capabilities\n\n| code | in words |\n| --- | --- |\n";
        constexpr std::int32_t highest = 12;
        for (std::int32_t code = 0; code <= highest; ++code) {
            text_ << "| " << code << " | " << GetCapabilityDescription(code) << " |\n";
        }
        text_ << "\nAny other code is \"" << GetCapabilityDescription(highest + 1) << "\".\n";
    }

    void WriteAssociationIntroduction() {
        text_
            << Wrapped(
                   "An association class has an instance for each pair of instances whose compared "
                   "properties fit: \"equals\" ignores case, \"contains\" does not. Every pair is "
                   "tested, so an ID that is part of another joins both. The references are the "
                   "keys; a path names them in the order of the table.")
            << '\n';
    }

    void WriteTitle(std::string_view title) { text_ << "## " << title << "\n\n"; }

    std::string Text() const { return text_.str(); }

private:
    static std::string_view CimStatus(std::int32_t code) {
        constexpr std::array<std::string_view, 7> names{
            "Unknown", "Other", "OK", "Degraded", "Stressed", "Predictive Failure", "Error"};
        return names.at(static_cast<std::size_t>(code));
    }

    static std::string Condition(const AssociationEnd& first, MatchRule rule,
                                 const AssociationEnd& second) {
        const auto key = [](const AssociationEnd& end) {
            return Code(std::string(end.role) + "." + std::string(end.key));
        };
        switch (rule) {
            case MatchRule::equal:
                return key(first) + " equals " + key(second);
            case MatchRule::firstContains:
            case MatchRule::firstContainsToo:
                return key(first) + " contains " + key(second);
            case MatchRule::secondContains:
                return key(second) + " contains " + key(first);
            default:
                return "?";
        }
    }

    void WriteHeading(std::string_view className) {
        const auto* const definition = classes_.Find(className);
        const ClassNote* const note = NoteOf(notes_, className);
        const std::string instances =
            note == nullptr || note->instances.empty() ? "" : note->instances + " ";
        text_ << "### " << className << "\n\n"
              << Wrapped(DescriptionOf(definition->qualifiers) + " " + instances +
                         "Superclass: " + Code(definition->superclass) + ".")
              << '\n';
    }

    void WriteProperties(std::string_view className) {
        text_ << "| property | type | source | value |\n| --- | --- | --- | --- |\n";
        for (const PropertyNote& note : NoteOf(notes_, className)->properties) {
            const PropertyDefinition property = Declared(className, note.name);
            text_ << "| " << Code(note.name) << (property.isKey ? " (key)" : "") << " | "
                  << TypeOf(property) << " | " << note.source << " | "
                  << Cell(DescriptionOf(property.qualifiers), note.meaning) << " |\n";
        }
        text_ << '\n';
    }

    void WriteEnd(const AssociationEnd& end) {
        text_ << "| " << Code(end.role) << " | " << Code(end.className) << " | " << Code(end.key)
              << " |\n";
    }

    /// Lists the declared properties that no instance has.
    void WriteUnpublished(std::string_view className) {
        const auto described = DescribedProperties(notes_, className);
        std::vector<std::string> names;
        for (const PropertyDefinition& property : classes_.Properties(className)) {
            if (property.type != service::CimType::reference &&
                !property.declaringClass.starts_with("__") &&
                std::ranges::find(described, property.name) == described.end()) {
                names.push_back(property.name);
            }
        }
        if (!names.empty()) {
            text_ << Wrapped("Declared, never published: " + Join(names) + ".") << '\n';
        }
    }

    std::vector<std::string> Keys(std::string_view className) const {
        std::vector<std::string> names = DescribedProperties(notes_, className);
        std::erase_if(names,
                      [&](const std::string& name) { return !Declared(className, name).isKey; });
        return names;
    }

    /// Returns a property as it is declared; an empty one for an unknown name.
    PropertyDefinition Declared(std::string_view className, std::string_view name) const {
        const auto properties = classes_.Properties(className);
        const auto found = std::ranges::find(properties, name, &PropertyDefinition::name);
        return found == properties.end() ? PropertyDefinition{} : *found;
    }

    const std::vector<ClassNote>& notes_;
    const service::ClassRepository& classes_;
    std::ostringstream text_;
};

}  // namespace

std::vector<ClassNote> ReadNotes(std::string_view text) {
    std::vector<ClassNote> notes;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        const auto [first, second, third] = Cells(line);
        if (line.starts_with("# ")) {
            notes.push_back({first.substr(2), second, {}});
        } else if (!notes.empty() && !line.empty()) {
            notes.back().properties.push_back({first, second, third});
        }
    }
    return notes;
}

std::vector<std::string> DescribedProperties(const std::vector<ClassNote>& notes,
                                             std::string_view className) {
    std::vector<std::string> names;
    if (const ClassNote* const note = NoteOf(notes, className)) {
        for (const PropertyNote& property : note->properties) {
            names.push_back(property.name);
        }
    }
    return names;
}

std::string ReferenceText(const std::vector<ClassNote>& notes,
                          const service::ClassRepository& classes) {
    Reference reference(notes, classes);
    reference.WriteTitle("Instance classes");
    for (const PublishedClass& one : PublishedClasses()) {
        if (one.association == nullptr) {
            reference.WriteInstanceClass(one.name);
        }
    }
    reference.WriteTitle("Association classes");
    reference.WriteAssociationIntroduction();
    for (const Association& one : associations) {
        reference.WriteAssociation(one);
    }
    reference.WriteTitle("Indication");
    reference.WriteIndication();
    reference.WriteStatusCodes();
    reference.WriteCapabilities();
    return reference.Text();
}

}  // namespace qv::test
