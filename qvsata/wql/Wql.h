#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "qvsata/cim/ObjectPath.h"
#include "qvsata/wql/WqlConditions.h"
#include "qvsata/wql/WqlName.h"

namespace qv::service {

/// The error of a text that is not a query. The message is one line and names the column.
class WqlError : public std::runtime_error {
public:
    WqlError(const std::string& reason, std::size_t column)
        : std::runtime_error("column " + std::to_string(column) + ": " + reason), column_(column) {}

    /// Returns the place of the error; the first byte of the text is column 1.
    std::size_t Column() const { return column_; }

private:
    std::size_t column_;
};

/// SELECT properties FROM class WHERE condition
struct SelectQuery {
    std::vector<WqlName> properties;  ///< empty for *
    std::string className;
    ConditionPtr where;  ///< null if the query has no WHERE

    /// Returns whether an object meets the condition.
    bool Accepts(const Object& object) const { return where == nullptr || where->HoldsFor(object); }

    /// Throws WqlError if the query names what is not in the scope, or compares a property in a way
    /// that its type does not allow. A query for class definitions selects * only.
    void CheckAgainst(const WqlScope& scope) const;

    /// Returns whether the query selects class definitions: FROM meta_class.
    bool AsksForClasses() const;
};

/// What ASSOCIATORS OF {path} WHERE ... and REFERENCES OF {path} WHERE ... have in common. A name
/// that the query does not give is empty.
struct AssociationQuery {
    ObjectPath path;
    std::string resultClass;
    std::string role;               ///< the reference that names the path
    std::string requiredQualifier;  ///< that the classes of the results have
    bool classDefsOnly = false;     ///< the classes of the results, not the results
    bool keysOnly = false;          ///< of the results, only the keys
    bool schemaOnly = false;        ///< the path names a class: the classes that may be results
};

struct AssociatorsQuery : AssociationQuery {
    std::string assocClass;
    std::string resultRole;              ///< the reference that names the result
    std::string requiredAssocQualifier;  ///< that the association's class has
};

struct ReferencesQuery : AssociationQuery {};

using WqlQuery = std::variant<SelectQuery, AssociatorsQuery, ReferencesQuery>;

/// Parses a query; throws WqlError. The accepted grammar, whose keywords ignore case:
///
///     query       = select | associators | references ;
///     select      = "SELECT" ( "*" | name { "," name } ) "FROM" name [ "WHERE" condition ] ;
///     associators = "ASSOCIATORS" "OF" path [ "WHERE" link { link } ] ;
///     references  = "REFERENCES" "OF" path [ "WHERE" link { link } ] ;
///     link        = "ClassDefsOnly" | "KeysOnly" | "SchemaOnly"
///                 | ( "AssocClass" | "ResultClass" | "Role" | "ResultRole" |
///                     "RequiredQualifier" | "RequiredAssocQualifier" ) "=" name ;
///     condition   = conjunction { "OR" conjunction } ;
///     conjunction = negation { "AND" negation } ;
///     negation    = "NOT" negation | "(" condition ")" | comparison ;
///     comparison  = name sign constant | constant sign name | name "LIKE" text
///                 | name "IS" [ "NOT" ] "NULL" | ( "__CLASS" | "__THIS" ) "ISA" text ;
///     sign        = "=" | "<>" | "!=" | "<" | ">" | "<=" | ">=" ;
///     constant    = text | number | "TRUE" | "FALSE" | "NULL" ;
///
/// A name is a word that is not SELECT, FROM, WHERE, AND, OR, NOT, LIKE, IS, ISA, NULL, TRUE or
/// FALSE. A link with a name appears once; REFERENCES OF has no AssocClass, ResultRole and
/// RequiredAssocQualifier. ClassDefsOnly excludes ResultClass and SchemaOnly. NOT and parentheses
/// nest at most 127 deep. WqlLexer.h describes the tokens, WqlLike.h the patterns of LIKE,
/// WqlComparison.h which constants a property is compared with.
WqlQuery ParseWql(std::string_view text);

}  // namespace qv::service
