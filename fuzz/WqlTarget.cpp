#include <optional>

#include "fuzz/Oracle.h"
#include "qvsata/mof/MofReader.h"
#include "qvsata/service/Namespace.h"
#include "qvsata/service/StatedInstances.h"
#include "qvsata/wql/Wql.h"
#include "tests/qvsata/service/MofNamespace.h"

namespace qv::fuzz {
namespace {

using namespace service;

// Every type of property, with and without a value, and an association.
constexpr std::string_view valuesMof = R"(
class Values {
    [key] string Name;
    sint8 S8; uint16 U16; sint32 S32; sint64 S64; uint64 U64; real32 R32; real64 R64; boolean Flag;
    string Text; datetime When; datetime Lasting; datetime Open; Values ref Other; uint16 Codes[];
    string Nothing;
};
class MoreValues : Values { string Extra; };
[association] class Link { [key] Values ref One; [key] Values ref Two; };
instance of Values {
    Name = "one"; S8 = -8; U16 = 16; S32 = -32; S64 = -9223372036854775808;
    U64 = 18446744073709551615; R32 = 0.1; R64 = 0.1; Flag = TRUE; Text = "Cat's \"Disk\" 100% C:\\x";
    When = "19980416130000.000000+060"; Lasting = "00000001120032.000000:000";
    Open = "19980416******.000000+***";
    Other = "Values.Name=\"other\""; Codes = {2, 5};
};
instance of MoreValues { Name = "other"; };
instance of Link { One = "Values.Name=\"one\""; Two = "MoreValues.Name=\"other\""; };)";

std::string PathsOf(const Answer& answer) {
    std::string paths;
    for (const ObjectPtr& object : answer.objects) {
        paths += service::TextOf(*object, "__RELPATH") + '\n';
    }
    return paths;
}

Answer AnswerTo(const std::string& query) {
    static const auto values = test::NamespaceOf(valuesMof);
    Answer answer = values->Query(query);
    Require(Succeeded(answer.status) == answer.message.empty() &&
                answer.message.find('\n') == std::string::npos,
            "exactly a failed query has a message of one line");
    return answer;
}

void CheckSameObjects(const Answer& expected, const std::string& query) {
    const Answer answer = AnswerTo(query);
    Require(answer.status == expected.status && PathsOf(answer) == PathsOf(expected),
            "a query of the same meaning has the same answer: " + query);
}

std::string Link(std::string_view keyword, const std::string& name) {
    return name.empty() ? std::string() : ' ' + std::string(keyword) + '=' + name;
}

std::string LinksOf(const AssociationQuery& query) {
    return Link("ResultClass", query.resultClass) + Link("Role", query.role) +
           Link("RequiredQualifier", query.requiredQualifier) +
           (query.classDefsOnly ? " ClassDefsOnly" : "") + (query.keysOnly ? " KeysOnly" : "") +
           (query.schemaOnly ? " SchemaOnly" : "");
}

std::string Written(const AssociationQuery& query, std::string_view verb,
                    const std::string& links) {
    return std::string(verb) + " OF {" + FormatObjectPath(query.path, PathForm::full) + "}" +
           (links.empty() ? "" : " WHERE" + links);
}

// Returns a query as text; nothing for a SELECT, whose condition has no text.
std::optional<std::string> Written(const WqlQuery& query) {
    if (const auto* associators = std::get_if<AssociatorsQuery>(&query)) {
        return Written(*associators, "ASSOCIATORS",
                       LinksOf(*associators) + Link("AssocClass", associators->assocClass) +
                           Link("ResultRole", associators->resultRole) +
                           Link("RequiredAssocQualifier", associators->requiredAssocQualifier));
    }
    if (const auto* references = std::get_if<ReferencesQuery>(&query)) {
        return Written(*references, "REFERENCES", LinksOf(*references));
    }
    return std::nullopt;
}

std::optional<WqlQuery> Parsed(const std::string& text) {
    try {
        return ParseWql(text);
    } catch (const WqlError& error) {
        Require(error.Column() >= 1 && error.Column() <= text.size() + 1,
                "an error is at a place of the text");
        return std::nullopt;
    }
}

void CheckQuery(const std::string& text) {
    const auto query = Parsed(text);
    const Answer answer = AnswerTo(text);
    const auto written = query ? Written(*query) : std::nullopt;
    if (written) {
        const auto again = Parsed(*written);
        Require(again && Written(*again) == written, "a query that is written is read as the same");
        CheckSameObjects(answer, *written);
    }
}

void CheckCondition(const std::string& condition) {
    const std::string select = "SELECT * FROM Values WHERE ";
    if (!Parsed(select + condition) || !Parsed(select + "NOT NOT (" + condition + ")")) {
        return;
    }
    const Answer answer = AnswerTo(select + condition);
    CheckSameObjects(answer, select + "(" + condition + ")");
    CheckSameObjects(answer, select + "NOT NOT (" + condition + ")");
    CheckSameObjects(answer, select + "(" + condition + ") AND Name IS NOT NULL");
    CheckSameObjects(answer, select + "Name IS NULL OR (" + condition + ")");
}

}  // namespace

void RunWql(Bytes input) {
    const std::string text(TextOf(input));
    CheckQuery(text);
    CheckCondition(text);
}

}  // namespace qv::fuzz
