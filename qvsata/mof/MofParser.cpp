#include "qvsata/mof/MofParser.h"

#include <algorithm>
#include <array>

#include "qvsata/mof/MofLexer.h"
#include "source/Text.h"

namespace qv::service {
namespace {

struct Flavor {
    std::string_view name;
    bool MofQualifier::*mark;  ///< null for a flavor that changes nothing
};

constexpr std::array flavors{
    Flavor{"ToSubclass", &MofQualifier::toSubclass},
    Flavor{"ToInstance", &MofQualifier::toInstance},
    Flavor{"NotToSubclass", nullptr},
    Flavor{"NotToInstance", nullptr},
    Flavor{"EnableOverride", &MofQualifier::enableOverride},
    Flavor{"DisableOverride", &MofQualifier::disableOverride},
    Flavor{"Restricted", &MofQualifier::restricted},
    Flavor{"Amended", nullptr},
    Flavor{"Translatable", nullptr},
};

std::string InQuotes(std::string_view text) {
    std::string quoted(1, '\'');
    quoted += text;
    quoted += '\'';
    return quoted;
}

/// Returns the text for a token in messages.
std::string Description(const MofToken& token) {
    switch (token.kind) {
        case MofTokenKind::end:
            return "the end of the file";
        case MofTokenKind::name:
        case MofTokenKind::symbol:
            return InQuotes(token.text);
        case MofTokenKind::alias:
            return InQuotes('$' + token.text);
        case MofTokenKind::pragma:
            return InQuotes("#pragma");
        default:
            return "a value";
    }
}

class Parser {
public:
    Parser(std::string_view text, std::string_view fileName)
        : fileName_(fileName), tokens_(TokenizeMof(text, fileName)) {}

    std::vector<MofDeclaration> Parse() {
        std::vector<MofDeclaration> declarations;
        while (Now().kind != MofTokenKind::end) {
            if (Now().kind == MofTokenKind::pragma) {
                declarations.emplace_back(ParsePragma());
                continue;
            }
            if (TakeKeyword("qualifier")) {
                SkipTo(";");
                continue;
            }
            std::vector<MofQualifier> qualifiers = ParseQualifiers();
            if (TakeKeyword("class")) {
                declarations.emplace_back(ParseClass(std::move(qualifiers)));
            } else if (TakeKeyword("instance")) {
                declarations.emplace_back(ParseInstance(std::move(qualifiers)));
            } else {
                Fail("declaration");
            }
        }
        return declarations;
    }

private:
    const MofToken& Now() const { return tokens_[at_]; }

    MofToken Take() { return tokens_[at_++]; }

    [[noreturn]] void Fail(std::string_view expected) const {
        std::string what(expected);
        what += " expected before ";
        what += Description(Now());
        throw MofError(fileName_, Now().position, what);
    }

    bool IsSymbol(std::string_view symbol) const {
        return Now().kind == MofTokenKind::symbol && Now().text == symbol;
    }

    bool IsKeyword(std::string_view keyword) const {
        return Now().kind == MofTokenKind::name && EqualsIgnoringCase(Now().text, keyword);
    }

    bool TakeSymbol(std::string_view symbol) {
        const bool taken = IsSymbol(symbol);
        at_ += taken ? 1 : 0;
        return taken;
    }

    bool TakeKeyword(std::string_view keyword) {
        const bool taken = IsKeyword(keyword);
        at_ += taken ? 1 : 0;
        return taken;
    }

    void ExpectSymbol(std::string_view symbol) {
        if (!TakeSymbol(symbol)) {
            Fail(InQuotes(symbol));
        }
    }

    std::string ExpectName(const char* what) {
        if (Now().kind != MofTokenKind::name) {
            Fail(what);
        }
        return Take().text;
    }

    std::string ExpectAlias() {
        if (Now().kind != MofTokenKind::alias) {
            Fail("alias");
        }
        return Take().text;
    }

    void SkipTo(std::string_view symbol) {
        while (!IsSymbol(symbol)) {
            if (Now().kind == MofTokenKind::end) {
                Fail(InQuotes(symbol));
            }
            Take();
        }
        Take();
    }

    MofPragma ParsePragma() {
        MofPragma pragma;
        Take();
        pragma.position = Now().position;
        pragma.name = ExpectName("name of a pragma");
        if (TakeSymbol("(")) {
            do {
                if (Now().kind != MofTokenKind::text && Now().kind != MofTokenKind::name) {
                    Fail("argument");
                }
                pragma.arguments.push_back(Now().kind == MofTokenKind::text ? TakeTexts()
                                                                            : Take().text);
            } while (TakeSymbol(","));
            ExpectSymbol(")");
        }
        return pragma;
    }

    std::string TakeTexts() {
        std::string joined;
        while (Now().kind == MofTokenKind::text) {
            joined += Take().text;
        }
        return joined;
    }

    std::vector<MofQualifier> ParseQualifiers() {
        std::vector<MofQualifier> qualifiers;
        if (!TakeSymbol("[")) {
            return qualifiers;
        }
        do {
            qualifiers.push_back(ParseQualifier());
        } while (TakeSymbol(","));
        ExpectSymbol("]");
        return qualifiers;
    }

    MofQualifier ParseQualifier() {
        MofQualifier qualifier;
        qualifier.position = Now().position;
        qualifier.name = ExpectName("name of a qualifier");
        if (TakeSymbol("(")) {
            qualifier.value = ParseInitializer();
            ExpectSymbol(")");
        } else if (IsSymbol("{")) {
            qualifier.value = ParseInitializer();
        }
        if (TakeSymbol(":")) {
            do {
                ParseFlavor(qualifier);
            } while (Now().kind == MofTokenKind::name);
        }
        return qualifier;
    }

    void ParseFlavor(MofQualifier& qualifier) {
        const auto* const flavor = std::ranges::find_if(
            flavors, [this](const Flavor& one) { return IsKeyword(one.name); });
        if (flavor == flavors.end()) {
            Fail("flavor of a qualifier");
        }
        if (flavor->mark != nullptr) {
            qualifier.*flavor->mark = true;
        }
        Take();
    }

    MofClass ParseClass(std::vector<MofQualifier> qualifiers) {
        MofClass declared;
        declared.qualifiers = std::move(qualifiers);
        declared.position = Now().position;
        declared.name = ExpectName("name of a class");
        if (TakeKeyword("as")) {
            ExpectAlias();
        }
        if (TakeSymbol(":")) {
            declared.superclassPosition = Now().position;
            declared.superclass = ExpectName("name of the superclass");
        }
        ExpectSymbol("{");
        while (!TakeSymbol("}")) {
            ParseFeature(declared);
        }
        ExpectSymbol(";");
        return declared;
    }

    void ParseFeature(MofClass& declared) {
        MofProperty property;
        property.qualifiers = ParseQualifiers();
        property.typePosition = Now().position;
        property.typeName = ExpectName("type");
        property.isReference = TakeKeyword("ref");
        property.position = Now().position;
        property.name = ExpectName("name of a property");
        if (TakeSymbol("(")) {
            SkipParameters();
            declared.hasMethods = true;
            return;
        }
        if (TakeSymbol("[")) {
            property.isArray = true;
            if (Now().kind == MofTokenKind::integer) {
                Take();
            }
            ExpectSymbol("]");
        }
        if (TakeSymbol("=")) {
            property.defaultValue = ParseInitializer();
        }
        ExpectSymbol(";");
        declared.properties.push_back(std::move(property));
    }

    void SkipParameters() {
        for (std::size_t open = 1; open > 0;) {
            if (Now().kind == MofTokenKind::end) {
                Fail("')'");
            }
            open += IsSymbol("(") ? 1U : 0U;
            open -= IsSymbol(")") ? 1U : 0U;
            Take();
        }
        ExpectSymbol(";");
    }

    MofInitializer ParseInitializer() {
        MofInitializer initializer;
        initializer.position = Now().position;
        if (Now().kind == MofTokenKind::alias) {
            initializer.isAlias = true;
            initializer.elements.push_back({Now().position, Now().text});
            Take();
        } else if (TakeSymbol("{")) {
            initializer.isArray = true;
            if (!IsSymbol("}")) {
                do {
                    initializer.elements.push_back(ParseLiteral());
                } while (TakeSymbol(","));
            }
            ExpectSymbol("}");
        } else {
            initializer.elements.push_back(ParseLiteral());
        }
        return initializer;
    }

    MofLiteral ParseLiteral() {
        MofLiteral literal;
        literal.position = Now().position;
        if (Now().kind == MofTokenKind::text) {
            literal.value = TakeTexts();
        } else if (Now().kind == MofTokenKind::integer || Now().kind == MofTokenKind::character) {
            literal.value = MofInteger{Now().magnitude, Now().negative};
            Take();
        } else if (Now().kind == MofTokenKind::real) {
            literal.value = Take().real;
        } else if (IsKeyword("true") || IsKeyword("false")) {
            literal.value = IsKeyword("true");
            Take();
        } else if (!TakeKeyword("null")) {
            Fail("value");
        }
        return literal;
    }

    MofInstance ParseInstance(std::vector<MofQualifier> qualifiers) {
        MofInstance instance;
        instance.qualifiers = std::move(qualifiers);
        if (!TakeKeyword("of")) {
            Fail("'of'");
        }
        instance.position = Now().position;
        instance.className = ExpectName("name of a class");
        if (TakeKeyword("as")) {
            instance.alias = ExpectAlias();
        }
        ExpectSymbol("{");
        while (!TakeSymbol("}")) {
            MofInstanceValue value;
            ParseQualifiers();
            value.position = Now().position;
            value.property = ExpectName("name of a property");
            ExpectSymbol("=");
            value.value = ParseInitializer();
            ExpectSymbol(";");
            instance.values.push_back(std::move(value));
        }
        ExpectSymbol(";");
        return instance;
    }

    std::string_view fileName_;
    std::vector<MofToken> tokens_;
    std::size_t at_ = 0;
};

}  // namespace

std::vector<MofDeclaration> ParseMof(std::string_view text, std::string_view fileName) {
    return Parser(text, fileName).Parse();
}

}  // namespace qv::service
