#include "qvsata/wql/Wql.h"

#include <algorithm>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/wql/WqlConditionParser.h"
#include "qvsata/wql/WqlCursor.h"
#include "source/Text.h"

namespace qv::service {
namespace {

/// A word that may follow WHERE in a query for associators or references, and where its name goes.
struct Link {
    std::string_view word;
    std::string* value;
};

SelectQuery ParseSelect(WqlCursor& tokens) {
    SelectQuery query;
    if (!tokens.TakeSymbol("*")) {
        do {
            query.properties.push_back(tokens.ExpectName("a property name or *"));
        } while (tokens.TakeSymbol(","));
    }
    tokens.ExpectWord("FROM");
    query.className = tokens.ExpectName("a class name");
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

void ParseLink(WqlCursor& tokens, const std::vector<Link>& links) {
    const auto link = std::ranges::find_if(
        links, [&tokens](const Link& candidate) { return tokens.IsAtWord(candidate.word); });
    if (link == links.end()) {
        tokens.Fail("unknown word after WHERE");
    }
    if (!link->value->empty()) {
        tokens.Fail(std::string(link->word) + " is given twice");
    }
    tokens.Take();
    if (!tokens.TakeSymbol("=")) {
        tokens.Fail("expected =");
    }
    *link->value = tokens.ExpectName("a name");
}

void ParseLinks(WqlCursor& tokens, const std::vector<Link>& links, bool& classDefsOnly) {
    if (!tokens.TakeWord("WHERE")) {
        return;
    }
    do {
        if (tokens.TakeWord("ClassDefsOnly")) {
            classDefsOnly = true;
        } else {
            ParseLink(tokens, links);
        }
    } while (!tokens.IsAt(WqlTokenKind::end));
}

AssociatorsQuery ParseAssociators(WqlCursor& tokens) {
    AssociatorsQuery query{ParsePath(tokens), {}, {}, {}, {}, false};
    ParseLinks(tokens,
               {{"AssocClass", &query.assocClass},
                {"ResultClass", &query.resultClass},
                {"Role", &query.role},
                {"ResultRole", &query.resultRole}},
               query.classDefsOnly);
    return query;
}

ReferencesQuery ParseReferences(WqlCursor& tokens) {
    ReferencesQuery query{ParsePath(tokens), {}, {}, false};
    ParseLinks(tokens, {{"ResultClass", &query.resultClass}, {"Role", &query.role}},
               query.classDefsOnly);
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

WqlQuery ParseWql(std::string_view text) {
    WqlCursor tokens(text);
    WqlQuery query = ParseQuery(tokens);
    if (!tokens.IsAt(WqlTokenKind::end)) {
        tokens.Fail("unexpected text after the query");
    }
    return query;
}

}  // namespace qv::service
