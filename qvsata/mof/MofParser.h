#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/mof/MofError.h"

namespace qv::service {

/// A whole number as written: up to 64 bits and a sign.
struct MofInteger {
    std::uint64_t magnitude = 0;
    bool negative = false;
};

/// A literal; std::monostate is `null`. Adjacent texts form one literal.
struct MofLiteral {
    MofPosition position;
    std::variant<std::monostate, bool, MofInteger, double, std::string> value;
};

/// A value: a literal, an alias, or a list of literals in braces.
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

/// Parses a MOF text into its declarations, as written. Their meaning is left to the MOF reader.
/// Qualifier declarations and methods are accepted and dropped.
///
///     file        = { pragma | declaration | class | instance } ;
///     pragma      = "#pragma" name [ "(" argument { "," argument } ")" ] ;
///     argument    = name | texts ;
///     declaration = "qualifier" { any token but ";" } ";" ;
///     class       = [ qualifiers ] "class" name [ "as" alias ] [ ":" name ]
///                   "{" { property | method } "}" ";" ;
///     property    = [ qualifiers ] name [ "ref" ] name [ "[" [ integer ] "]" ]
///                   [ "=" initializer ] ";" ;
///     method      = [ qualifiers ] name [ "ref" ] name
///                   "(" { any token, parentheses in pairs } ")" ";" ;
///     instance    = [ qualifiers ] "instance" "of" name [ "as" alias ]
///                   "{" { [ qualifiers ] name "=" initializer ";" } "}" ";" ;
///     qualifiers  = "[" qualifier { "," qualifier } "]" ;
///     qualifier   = name [ "(" initializer ")" | list ] [ ":" flavor { flavor } ] ;
///     flavor      = "ToSubclass" | "NotToSubclass" | "ToInstance" | "NotToInstance"
///                 | "EnableOverride" | "DisableOverride" | "Restricted" | "Amended"
///                 | "Translatable" ;
///     initializer = alias | list | literal ;
///     list        = "{" [ literal { "," literal } ] "}" ;
///     literal     = texts | integer | real | character | "TRUE" | "FALSE" | "NULL" ;
///     texts       = text { text } ;
///
/// Keywords and flavors ignore case, except "#pragma". MofLexer.h describes the tokens.
/// @throws MofError on the first syntax error.
std::vector<MofDeclaration> ParseMof(std::string_view text, std::string_view fileName);

}  // namespace qv::service
