#include "qvsata/wql/WqlConditionParser.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/wql/Wql.h"
#include "qvsata/wql/WqlLike.h"
#include "source/Text.h"

namespace qv::service {
namespace {

// A query comes from anybody, and its nesting is parsed and evaluated on the stack.
constexpr int deepestNesting = 128;

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

class ConditionParser {
public:
    explicit ConditionParser(WqlCursor& tokens) : tokens_(tokens) {}

    ConditionPtr ParseOr();

private:
    ConditionPtr ParseAnd();
    ConditionPtr ParseNot();
    ConditionPtr ParseComparison();
    ConditionPtr ParseIsA(const WqlName& property);
    ConditionPtr ParseIsNull(WqlName property);
    ConditionPtr ParseLike(WqlName property);
    const ComparisonSign& ParseSign();
    bool IsAtConstant() const;
    WqlConstant ParseConstant();

    WqlCursor& tokens_;
    int nesting_ = 0;
};

ConditionPtr ConditionParser::ParseOr() {
    std::vector<ConditionPtr> alternatives;
    do {
        alternatives.push_back(ParseAnd());
    } while (tokens_.TakeWord("OR"));
    return alternatives.size() == 1 ? alternatives.front() : AnyOf(std::move(alternatives));
}

ConditionPtr ConditionParser::ParseAnd() {
    std::vector<ConditionPtr> conditions;
    do {
        conditions.push_back(ParseNot());
    } while (tokens_.TakeWord("AND"));
    return conditions.size() == 1 ? conditions.front() : AllOf(std::move(conditions));
}

ConditionPtr ConditionParser::ParseNot() {
    if (++nesting_ > deepestNesting) {
        tokens_.Fail("the condition is nested too deeply");
    }
    ConditionPtr condition;
    if (tokens_.TakeWord("NOT")) {
        condition = Not(ParseNot());
    } else if (tokens_.TakeSymbol("(")) {
        condition = ParseOr();
        if (!tokens_.TakeSymbol(")")) {
            tokens_.Fail("expected )");
        }
    } else {
        condition = ParseComparison();
    }
    --nesting_;
    return condition;
}

ConditionPtr ConditionParser::ParseComparison() {
    if (IsAtConstant()) {
        WqlConstant constant = ParseConstant();
        const Comparison mirrored = ParseSign().mirrored;
        return CompareProperty(tokens_.ExpectName("a property name"), mirrored,
                               std::move(constant));
    }
    WqlName property = tokens_.ExpectName("a property name");
    if (tokens_.TakeWord("IS")) {
        return ParseIsNull(std::move(property));
    }
    if (tokens_.TakeWord("ISA")) {
        return ParseIsA(property);
    }
    if (tokens_.TakeWord("LIKE")) {
        return ParseLike(std::move(property));
    }
    const Comparison comparison = ParseSign().comparison;
    if (!IsAtConstant()) {
        tokens_.Fail("expected a text, a number, TRUE, FALSE or NULL");
    }
    return CompareProperty(std::move(property), comparison, ParseConstant());
}

ConditionPtr ConditionParser::ParseIsA(const WqlName& property) {
    if (!EqualsIgnoringCase(property.text, "__CLASS") &&
        !EqualsIgnoringCase(property.text, "__THIS")) {
        throw WqlError("ISA asks for __CLASS or __THIS", property.column);
    }
    WqlName className = tokens_.ExpectText("a class name in quotes");
    if (!IsWqlWord(className.text)) {
        throw WqlError("not a class name", className.column);
    }
    return IsOfClass(std::move(className));
}

ConditionPtr ConditionParser::ParseIsNull(WqlName property) {
    const bool negated = tokens_.TakeWord("NOT");
    tokens_.ExpectWord("NULL");
    ConditionPtr isNull = PropertyIsNull(std::move(property));
    return negated ? Not(std::move(isNull)) : isNull;
}

ConditionPtr ConditionParser::ParseLike(WqlName property) {
    const WqlName pattern = tokens_.ExpectText("a pattern in quotes");
    if (!LikePattern::IsClosed(pattern.text)) {
        throw WqlError("the pattern's [ is not closed", pattern.column);
    }
    return MatchProperty(std::move(property), pattern.text);
}

const ComparisonSign& ConditionParser::ParseSign() {
    const auto* const found = std::ranges::find_if(
        comparisonSigns,
        [this](const ComparisonSign& candidate) { return tokens_.IsAtSymbol(candidate.sign); });
    if (found == comparisonSigns.end()) {
        tokens_.Fail("expected a comparison");
    }
    tokens_.Take();
    return *found;
}

bool ConditionParser::IsAtConstant() const {
    return tokens_.IsAt(WqlTokenKind::text) || tokens_.IsAt(WqlTokenKind::number) ||
           tokens_.IsAtWord("TRUE") || tokens_.IsAtWord("FALSE") || tokens_.IsAtWord("NULL");
}

WqlConstant ConditionParser::ParseConstant() {
    if (tokens_.TakeWord("NULL")) {
        return std::monostate{};
    }
    if (tokens_.TakeWord("TRUE")) {
        return true;
    }
    if (tokens_.TakeWord("FALSE")) {
        return false;
    }
    if (tokens_.IsAt(WqlTokenKind::text)) {
        return tokens_.Take().value;
    }
    const auto number = ParseNumber(tokens_.Peek().value);
    if (!number) {
        tokens_.Fail("not a number");
    }
    tokens_.Take();
    return *number;
}

}  // namespace

ConditionPtr ParseCondition(WqlCursor& tokens) {
    return ConditionParser(tokens).ParseOr();
}

}  // namespace qv::service
