#include "qvsata/wql/Wql.h"

#include <algorithm>
#include <array>
#include <utility>

#include "qvsata/cim/ObjectPathParser.h"
#include "qvsata/wql/WqlConditions.h"
#include "qvsata/wql/WqlLexer.h"
#include "qvsata/wql/WqlLike.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// A query is untrusted input, and nested conditions are parsed and evaluated on the stack.
constexpr int deepestNesting = 128;

constexpr std::array<std::string_view, 12> reservedWords = {
    "SELECT", "FROM", "WHERE", "AND", "OR", "NOT", "LIKE", "IS", "ISA", "NULL", "TRUE", "FALSE"};

struct ComparisonSign {
    std::string_view sign;
    Comparison comparison;
    Comparison mirrored;  // the same with the sides exchanged
};

constexpr std::array<ComparisonSign, 7> comparisonSigns = {{
    {"=", Comparison::equal, Comparison::equal},
    {"<>", Comparison::notEqual, Comparison::notEqual},
    {"!=", Comparison::notEqual, Comparison::notEqual},
    {"<", Comparison::less, Comparison::greater},
    {">", Comparison::greater, Comparison::less},
    {"<=", Comparison::lessOrEqual, Comparison::greaterOrEqual},
    {">=", Comparison::greaterOrEqual, Comparison::lessOrEqual},
}};

struct WherePart {
    std::string_view word;
    std::string* value;
};

class WqlParser {
public:
    explicit WqlParser(std::string_view text) : tokens_(SplitWql(text)) {}

    WqlQuery Parse() {
        WqlQuery query = ParseQuery();
        if (Peek().kind != WqlTokenKind::end) {
            Fail("unexpected text after the query");
        }
        return query;
    }

private:
    WqlQuery ParseQuery() {
        if (TakeWord("SELECT")) {
            return ParseSelect();
        }
        if (TakeWord("ASSOCIATORS")) {
            AssociatorsQuery query{ParsePath(), {}, {}, {}, {}, false};
            ParseWhereParts({{"AssocClass", &query.assocClass},
                             {"ResultClass", &query.resultClass},
                             {"Role", &query.role},
                             {"ResultRole", &query.resultRole}},
                            query.classDefsOnly);
            return query;
        }
        if (TakeWord("REFERENCES")) {
            ReferencesQuery query{ParsePath(), {}, {}, false};
            ParseWhereParts({{"ResultClass", &query.resultClass}, {"Role", &query.role}},
                            query.classDefsOnly);
            return query;
        }
        Fail("expected SELECT, ASSOCIATORS OF or REFERENCES OF");
    }

    SelectQuery ParseSelect() {
        SelectQuery query;
        if (!TakeSymbol("*")) {
            do {
                query.properties.push_back(ParseName("a property name or *"));
            } while (TakeSymbol(","));
        }
        ExpectWord("FROM");
        query.className = ParseName("a class name");
        if (TakeWord("WHERE")) {
            query.where = ParseAlternatives();
        }
        return query;
    }

    ObjectPath ParsePath() {
        ExpectWord("OF");
        if (Peek().kind != WqlTokenKind::path) {
            Fail("expected an object path in braces");
        }
        const WqlToken& token = Take();
        PathError error;
        auto path = ParseObjectPath(token.value, &error);
        if (!path) {
            throw WqlError("not an object path: " + error.reason, token.column + error.position);
        }
        return *std::move(path);
    }

    void ParseWhereParts(const std::vector<WherePart>& parts, bool& classDefsOnly) {
        if (!TakeWord("WHERE")) {
            return;
        }
        do {
            if (TakeWord("ClassDefsOnly")) {
                classDefsOnly = true;
                continue;
            }
            const auto part = std::ranges::find_if(
                parts, [this](const WherePart& candidate) { return IsWord(candidate.word); });
            if (part == parts.end()) {
                Fail("unknown word after WHERE");
            }
            if (!part->value->empty()) {
                Fail(std::string(part->word) + " is given twice");
            }
            Take();
            if (!TakeSymbol("=")) {
                Fail("expected =");
            }
            *part->value = ParseName("a name");
        } while (Peek().kind != WqlTokenKind::end);
    }

    ConditionPtr ParseAlternatives() {
        std::vector<ConditionPtr> alternatives;
        do {
            alternatives.push_back(ParseConjunction());
        } while (TakeWord("OR"));
        return alternatives.size() == 1 ? alternatives.front() : AnyOf(std::move(alternatives));
    }

    ConditionPtr ParseConjunction() {
        std::vector<ConditionPtr> conditions;
        do {
            conditions.push_back(ParseNegation());
        } while (TakeWord("AND"));
        return conditions.size() == 1 ? conditions.front() : AllOf(std::move(conditions));
    }

    ConditionPtr ParseNegation() {
        if (++nesting_ > deepestNesting) {
            Fail("the condition is nested too deeply");
        }
        ConditionPtr condition;
        if (TakeWord("NOT")) {
            condition = Not(ParseNegation());
        } else if (TakeSymbol("(")) {
            condition = ParseAlternatives();
            if (!TakeSymbol(")")) {
                Fail("expected )");
            }
        } else {
            condition = ParseComparison();
        }
        --nesting_;
        return condition;
    }

    ConditionPtr ParseComparison() {
        if (IsConstant()) {
            WqlConstant constant = ParseConstant();
            const Comparison mirrored = ParseComparisonSign().mirrored;
            return CompareProperty(ParseName("a property name"), mirrored, std::move(constant));
        }
        const WqlToken& property = Peek();
        std::string name = ParseName("a property name");
        if (TakeWord("IS")) {
            const bool negated = TakeWord("NOT");
            ExpectWord("NULL");
            ConditionPtr isNull = PropertyIsNull(std::move(name));
            return negated ? Not(std::move(isNull)) : isNull;
        }
        if (TakeWord("ISA")) {
            if (!EqualsIgnoringCase(name, "__CLASS") && !EqualsIgnoringCase(name, "__THIS")) {
                throw WqlError("ISA asks for __CLASS or __THIS", property.column);
            }
            return IsOfClass(ParseText("a class name in quotes"));
        }
        if (TakeWord("LIKE")) {
            const std::size_t column = Peek().column;
            std::string pattern = ParseText("a pattern in quotes");
            if (!LikePattern::IsClosed(pattern)) {
                throw WqlError("the pattern's [ is not closed", column);
            }
            return MatchProperty(std::move(name), pattern);
        }
        const Comparison comparison = ParseComparisonSign().comparison;
        if (!IsConstant()) {
            Fail("expected a text, a number, TRUE, FALSE or NULL");
        }
        return CompareProperty(std::move(name), comparison, ParseConstant());
    }

    const ComparisonSign& ParseComparisonSign() {
        const auto* found = std::ranges::find_if(comparisonSigns, [this](const auto& candidate) {
            return Peek().kind == WqlTokenKind::symbol && Peek().value == candidate.sign;
        });
        if (found == comparisonSigns.end()) {
            Fail("expected a comparison");
        }
        Take();
        return *found;
    }

    bool IsConstant() const {
        return Peek().kind == WqlTokenKind::text || Peek().kind == WqlTokenKind::number ||
               IsWord("TRUE") || IsWord("FALSE") || IsWord("NULL");
    }

    WqlConstant ParseConstant() {
        if (TakeWord("NULL")) {
            return std::monostate{};
        }
        if (IsWord("TRUE") || IsWord("FALSE")) {
            const bool value = IsWord("TRUE");
            Take();
            return value;
        }
        if (Peek().kind == WqlTokenKind::text) {
            return Take().value;
        }
        const auto number = ParseNumber(Peek().value);
        if (!number) {
            Fail("not a number");
        }
        Take();
        return *number;
    }

    std::string ParseText(const char* what) {
        if (Peek().kind != WqlTokenKind::text) {
            Fail(std::string("expected ") + what);
        }
        return Take().value;
    }

    std::string ParseName(const char* what) {
        const bool isReserved = std::ranges::any_of(
            reservedWords, [this](std::string_view reserved) { return IsWord(reserved); });
        if (Peek().kind != WqlTokenKind::word || isReserved) {
            Fail(std::string("expected ") + what);
        }
        return Take().value;
    }

    const WqlToken& Peek() const { return tokens_[next_]; }
    const WqlToken& Take() { return tokens_[next_++]; }

    bool IsWord(std::string_view word) const {
        return Peek().kind == WqlTokenKind::word && EqualsIgnoringCase(Peek().value, word);
    }

    bool TakeWord(std::string_view word) {
        if (!IsWord(word)) {
            return false;
        }
        Take();
        return true;
    }

    bool TakeSymbol(std::string_view symbol) {
        if (Peek().kind != WqlTokenKind::symbol || Peek().value != symbol) {
            return false;
        }
        Take();
        return true;
    }

    void ExpectWord(std::string_view word) {
        if (!TakeWord(word)) {
            Fail("expected " + std::string(word));
        }
    }

    [[noreturn]] void Fail(const std::string& reason) const {
        throw WqlError(reason, Peek().column);
    }

    std::vector<WqlToken> tokens_;
    std::size_t next_ = 0;
    int nesting_ = 0;
};

}  // namespace

bool SelectQuery::AsksForClasses() const {
    return EqualsIgnoringCase(className, "meta_class");
}

WqlQuery ParseWql(std::string_view text) {
    return WqlParser(text).Parse();
}

}  // namespace qv::service
