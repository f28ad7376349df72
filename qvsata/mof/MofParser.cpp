#include "qvsata/mof/MofParser.h"

#include <algorithm>
#include <array>

#include "qvsata/mof/MofCursor.h"

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

class Parser {
public:
    Parser(std::string_view text, std::string_view fileName) : tokens_(text, fileName) {}

    std::vector<MofDeclaration> Parse() {
        std::vector<MofDeclaration> declarations;
        while (tokens_.Now().kind != MofTokenKind::end) {
            if (tokens_.Now().kind == MofTokenKind::pragma) {
                declarations.emplace_back(ParsePragma());
                continue;
            }
            if (tokens_.TakeKeyword("qualifier")) {
                tokens_.SkipTo(";");
                continue;
            }
            std::vector<MofQualifier> qualifiers = ParseQualifiers();
            if (tokens_.TakeKeyword("class")) {
                declarations.emplace_back(ParseClass(std::move(qualifiers)));
            } else if (tokens_.TakeKeyword("instance")) {
                declarations.emplace_back(ParseInstance(std::move(qualifiers)));
            } else {
                tokens_.Fail("declaration");
            }
        }
        return declarations;
    }

private:
    MofPragma ParsePragma() {
        MofPragma pragma;
        tokens_.Take();
        pragma.position = tokens_.Now().position;
        pragma.name = tokens_.ExpectName("name of a pragma");
        if (tokens_.TakeSymbol("(")) {
            do {
                if (tokens_.Now().kind != MofTokenKind::text &&
                    tokens_.Now().kind != MofTokenKind::name) {
                    tokens_.Fail("argument");
                }
                pragma.arguments.push_back(tokens_.Now().kind == MofTokenKind::text
                                               ? tokens_.TakeTexts()
                                               : tokens_.Take().text);
            } while (tokens_.TakeSymbol(","));
            tokens_.ExpectSymbol(")");
        }
        return pragma;
    }

    std::vector<MofQualifier> ParseQualifiers() {
        std::vector<MofQualifier> qualifiers;
        if (!tokens_.TakeSymbol("[")) {
            return qualifiers;
        }
        do {
            qualifiers.push_back(ParseQualifier());
        } while (tokens_.TakeSymbol(","));
        tokens_.ExpectSymbol("]");
        return qualifiers;
    }

    MofQualifier ParseQualifier() {
        MofQualifier qualifier;
        qualifier.position = tokens_.Now().position;
        qualifier.name = tokens_.ExpectName("name of a qualifier");
        if (tokens_.TakeSymbol("(")) {
            qualifier.value = ParseInitializer();
            tokens_.ExpectSymbol(")");
        } else if (tokens_.IsSymbol("{")) {
            qualifier.value = ParseInitializer();
        }
        if (tokens_.TakeSymbol(":")) {
            do {
                ParseFlavor(qualifier);
            } while (tokens_.Now().kind == MofTokenKind::name);
        }
        return qualifier;
    }

    void ParseFlavor(MofQualifier& qualifier) {
        const auto* const flavor = std::ranges::find_if(
            flavors, [this](const Flavor& one) { return tokens_.IsKeyword(one.name); });
        if (flavor == flavors.end()) {
            tokens_.Fail("flavor of a qualifier");
        }
        if (flavor->mark != nullptr) {
            qualifier.*flavor->mark = true;
        }
        tokens_.Take();
    }

    MofClass ParseClass(std::vector<MofQualifier> qualifiers) {
        MofClass declared;
        declared.qualifiers = std::move(qualifiers);
        declared.position = tokens_.Now().position;
        declared.name = tokens_.ExpectName("name of a class");
        if (tokens_.TakeKeyword("as")) {
            tokens_.ExpectAlias();
        }
        if (tokens_.TakeSymbol(":")) {
            declared.superclassPosition = tokens_.Now().position;
            declared.superclass = tokens_.ExpectName("name of the superclass");
        }
        tokens_.ExpectSymbol("{");
        while (!tokens_.TakeSymbol("}")) {
            ParseFeature(declared);
        }
        tokens_.ExpectSymbol(";");
        return declared;
    }

    void ParseFeature(MofClass& declared) {
        MofProperty property;
        property.qualifiers = ParseQualifiers();
        property.typePosition = tokens_.Now().position;
        property.typeName = tokens_.ExpectName("type");
        property.isReference = tokens_.TakeKeyword("ref");
        property.position = tokens_.Now().position;
        property.name = tokens_.ExpectName("name of a property");
        if (tokens_.TakeSymbol("(")) {
            SkipParameters();
            declared.hasMethods = true;
            return;
        }
        if (tokens_.TakeSymbol("[")) {
            property.isArray = true;
            if (tokens_.Now().kind == MofTokenKind::integer) {
                tokens_.Take();
            }
            tokens_.ExpectSymbol("]");
        }
        if (tokens_.TakeSymbol("=")) {
            property.defaultValue = ParseInitializer();
        }
        tokens_.ExpectSymbol(";");
        declared.properties.push_back(std::move(property));
    }

    void SkipParameters() {
        for (std::size_t open = 1; open > 0;) {
            if (tokens_.Now().kind == MofTokenKind::end) {
                tokens_.Fail("')'");
            }
            open += tokens_.IsSymbol("(") ? 1U : 0U;
            open -= tokens_.IsSymbol(")") ? 1U : 0U;
            tokens_.Take();
        }
        tokens_.ExpectSymbol(";");
    }

    MofInitializer ParseInitializer() {
        MofInitializer initializer;
        initializer.position = tokens_.Now().position;
        if (tokens_.Now().kind == MofTokenKind::alias) {
            initializer.isAlias = true;
            initializer.elements.push_back({tokens_.Now().position, tokens_.Now().text});
            tokens_.Take();
        } else if (tokens_.TakeSymbol("{")) {
            initializer.isArray = true;
            if (!tokens_.IsSymbol("}")) {
                do {
                    initializer.elements.push_back(ParseLiteral());
                } while (tokens_.TakeSymbol(","));
            }
            tokens_.ExpectSymbol("}");
        } else {
            initializer.elements.push_back(ParseLiteral());
        }
        return initializer;
    }

    MofLiteral ParseLiteral() {
        MofLiteral literal;
        literal.position = tokens_.Now().position;
        if (tokens_.Now().kind == MofTokenKind::text) {
            literal.value = tokens_.TakeTexts();
        } else if (tokens_.Now().kind == MofTokenKind::integer ||
                   tokens_.Now().kind == MofTokenKind::character) {
            literal.value = MofInteger{tokens_.Now().magnitude, tokens_.Now().negative};
            tokens_.Take();
        } else if (tokens_.Now().kind == MofTokenKind::real) {
            literal.value = tokens_.Take().real;
        } else if (tokens_.IsKeyword("true") || tokens_.IsKeyword("false")) {
            literal.value = tokens_.IsKeyword("true");
            tokens_.Take();
        } else if (!tokens_.TakeKeyword("null")) {
            tokens_.Fail("value");
        }
        return literal;
    }

    MofInstance ParseInstance(std::vector<MofQualifier> qualifiers) {
        MofInstance instance;
        instance.qualifiers = std::move(qualifiers);
        if (!tokens_.TakeKeyword("of")) {
            tokens_.Fail("'of'");
        }
        instance.position = tokens_.Now().position;
        instance.className = tokens_.ExpectName("name of a class");
        if (tokens_.TakeKeyword("as")) {
            instance.alias = tokens_.ExpectAlias();
        }
        tokens_.ExpectSymbol("{");
        while (!tokens_.TakeSymbol("}")) {
            MofInstanceValue value;
            ParseQualifiers();
            value.position = tokens_.Now().position;
            value.property = tokens_.ExpectName("name of a property");
            tokens_.ExpectSymbol("=");
            value.value = ParseInitializer();
            tokens_.ExpectSymbol(";");
            instance.values.push_back(std::move(value));
        }
        tokens_.ExpectSymbol(";");
        return instance;
    }

    MofCursor tokens_;
};

}  // namespace

std::vector<MofDeclaration> ParseMof(std::string_view text, std::string_view fileName) {
    return Parser(text, fileName).Parse();
}

}  // namespace qv::service
