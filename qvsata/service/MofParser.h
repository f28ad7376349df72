#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/service/MofError.h"

namespace qv::service {

/// A whole number as it is written: up to 64 bits and a sign.
struct MofInteger {
    std::uint64_t magnitude = 0;
    bool negative = false;
};

/// A literal; std::monostate is `null`. Adjacent texts are one literal.
struct MofLiteral {
    MofPosition position;
    std::variant<std::monostate, bool, MofInteger, double, std::string> value;
};

/// What stands behind an equals sign: a literal, an alias, or several of either in braces.
struct MofInitializer {
    MofPosition position;
    bool isArray = false;
    bool isAlias = false;  ///< the literal is the name of an alias
    std::vector<MofLiteral> elements;
};

struct MofQualifier {
    MofPosition position;
    std::string name;
    std::optional<MofInitializer> value;
    bool toSubclass = false;
    bool toInstance = false;
    bool enableOverride = false;
    bool disableOverride = false;
    bool restricted = false;
};

struct MofProperty {
    MofPosition position;  ///< of the name
    MofPosition typePosition;
    std::string typeName;  ///< or the class of a reference
    bool isReference = false;
    bool isArray = false;
    std::string name;
    std::vector<MofQualifier> qualifiers;
    std::optional<MofInitializer> defaultValue;
};

struct MofClass {
    MofPosition position;  ///< of the name
    MofPosition superclassPosition;
    std::string name;
    std::string superclass;
    std::vector<MofQualifier> qualifiers;
    std::vector<MofProperty> properties;
    bool hasMethods = false;
};

struct MofInstanceValue {
    MofPosition position;
    std::string property;
    MofInitializer value;
};

struct MofInstance {
    MofPosition position;  ///< of the class name
    std::string className;
    std::string alias;
    std::vector<MofQualifier> qualifiers;
    std::vector<MofInstanceValue> values;
};

struct MofPragma {
    MofPosition position;
    std::string name;
    std::vector<std::string> arguments;
};

using MofDeclaration = std::variant<MofPragma, MofClass, MofInstance>;

/// The declarations of a MOF text as they are written; what they mean is the reader's matter.
/// Qualifier declarations, and the methods themselves, are accepted and left out.
/// @throws MofError on the first error of syntax.
std::vector<MofDeclaration> ParseMof(std::string_view text, std::string_view fileName);

}  // namespace qv::service
