#include "qvsata/wql/Wql.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/wql/WqlConditionParser.h"
#include "qvsata/wql/WqlCursor.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// The words that may follow WHERE in a query for associators or references, and where each puts
/// its name or its flag.
struct Links {
    std::vector<std::pair<std::string_view, std::string*>> names;
    std::vector<std::pair<std::string_view, bool*>> flags;
};

SelectQuery ParseSelect(WqlCursor& tokens) {
    SelectQuery query;
    if (!tokens.TakeSymbol("*")) {
        do {
            query.properties.push_back(tokens.ExpectName("a property name or *"));
        } while (tokens.TakeSymbol(","));
    }
    tokens.ExpectWord("FROM");
    query.className = tokens.ExpectName("a class name").text;
    if (tokens.TakeWord("WHERE")) {
        query.where = ParseCondition(tokens);
    }
    return query;
}

ObjectPath ParsePath(WqlCursor& tokens) {
    tokens.ExpectWord("OF");
    if (!tokens.IsAt(WqlTokenKind::path)) {
        tokens.Fail("expected an object path in braces");
    }
    const WqlToken& token = tokens.Take();
    PathError error;
    auto path = ParseObjectPath(token.value, &error);
    if (!path) {
        throw WqlError("not an object path: " + error.reason, token.column + error.position);
    }
    return *std::move(path);
}

template <typename Target>
Target* FindLink(const WqlCursor& tokens,
                 const std::vector<std::pair<std::string_view, Target*>>& links) {
    const auto link = std::ranges::find_if(
        links, [&tokens](const auto& candidate) { return tokens.IsAtWord(candidate.first); });
    return link == links.end() ? nullptr : link->second;
}

void ParseLink(WqlCursor& tokens, const Links& links) {
    if (bool* const flag = FindLink(tokens, links.flags)) {
        tokens.Take();
        *flag = true;
        return;
    }
    std::string* const name = FindLink(tokens, links.names);
    if (name == nullptr) {
        tokens.Fail("unknown word after WHERE");
    }
    if (!name->empty()) {
        tokens.Fail(tokens.Peek().value + " is given twice");
    }
    tokens.Take();
    if (!tokens.TakeSymbol("=")) {
        tokens.Fail("expected =");
    }
    *name = tokens.ExpectName("a name").text;
}

/// Throws WqlError, with the place of the last word, if the query has words that exclude each
/// other.
void CheckExclusions(const AssociationQuery& query, std::size_t column) {
    if (query.classDefsOnly && !query.resultClass.empty()) {
        throw WqlError("ClassDefsOnly excludes ResultClass", column);
    }
    if (query.classDefsOnly && query.schemaOnly) {
        throw WqlError("ClassDefsOnly excludes SchemaOnly", column);
    }
}

/// Parses the rest of a query after ASSOCIATORS or REFERENCES. `names` are the names that only this
/// kind of query has.
void ParseAssociation(WqlCursor& tokens, AssociationQuery& query,
                      std::vector<std::pair<std::string_view, std::string*>> names) {
    query.path = ParsePath(tokens);
    if (!tokens.TakeWord("WHERE")) {
        return;
    }
    Links links{std::move(names),
                {{"ClassDefsOnly", &query.classDefsOnly},
                 {"KeysOnly", &query.keysOnly},
                 {"SchemaOnly", &query.schemaOnly}}};
    links.names.insert(links.names.end(), {{"ResultClass", &query.resultClass},
                                           {"Role", &query.role},
                                           {"RequiredQualifier", &query.requiredQualifier}});
    do {
        const std::size_t column = tokens.Peek().column;
        ParseLink(tokens, links);
        CheckExclusions(query, column);
    } while (!tokens.IsAt(WqlTokenKind::end));
}

AssociatorsQuery ParseAssociators(WqlCursor& tokens) {
    AssociatorsQuery query;
    ParseAssociation(tokens, query,
                     {{"AssocClass", &query.assocClass},
                      {"ResultRole", &query.resultRole},
                      {"RequiredAssocQualifier", &query.requiredAssocQualifier}});
    return query;
}

ReferencesQuery ParseReferences(WqlCursor& tokens) {
    ReferencesQuery query;
    ParseAssociation(tokens, query, {});
    return query;
}

WqlQuery ParseQuery(WqlCursor& tokens) {
    if (tokens.TakeWord("SELECT")) {
        return ParseSelect(tokens);
    }
    if (tokens.TakeWord("ASSOCIATORS")) {
        return ParseAssociators(tokens);
    }
    if (tokens.TakeWord("REFERENCES")) {
        return ParseReferences(tokens);
    }
    tokens.Fail("expected SELECT, ASSOCIATORS OF or REFERENCES OF");
}

}  // namespace

bool SelectQuery::AsksForClasses() const {
    return EqualsIgnoringCase(className, "meta_class");
}

void SelectQuery::CheckAgainst(const WqlScope& scope) const {
    if (AsksForClasses() && !properties.empty()) {
        throw WqlError("a query for classes selects *", properties.front().column);
    }
    for (const WqlName& name : properties) {
        PropertyNamed(name, scope);
    }
    if (where) {
        where->CheckAgainst(scope);
    }
}

WqlQuery ParseWql(std::string_view text) {
    WqlCursor tokens(text);
    WqlQuery query = ParseQuery(tokens);
    if (!tokens.IsAt(WqlTokenKind::end)) {
        tokens.Fail("unexpected text after the query");
    }
    return query;
}

}  // namespace qv::service
