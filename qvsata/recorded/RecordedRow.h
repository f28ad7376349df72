#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/Object.h"

namespace qv::service {

/// The properties of a row, in order.
using RowProperties = std::vector<std::pair<std::string, CimValue>>;

/// Class and property names, shared by all rows of a class with the same properties, to save
/// memory.
struct RowShape {
    std::shared_ptr<const std::string> className;  ///< shared by all rows of the class
    std::vector<std::string> names;                ///< of the properties, in order
};

/// The shapes of one class, by their names.
struct LessNames {
    bool operator()(const std::shared_ptr<const RowShape>& left,
                    const std::shared_ptr<const RowShape>& right) const {
        return left->names < right->names;
    }
};
using RowShapes = std::set<std::shared_ptr<const RowShape>, LessNames>;

/// Returns the property that is the key of a source class; empty for any other class.
std::string_view KeyOfSource(std::string_view className);

/// A recorded row. The keys of the source classes are known. The keys of any other class are its
/// references: the texts that are the path of an instance.
class RecordedRow {
public:
    RecordedRow(std::shared_ptr<const std::string> className, RowProperties properties);

    /// Takes the shape of the same names among `shapes`, which gains it if it is new.
    void ShareShape(RowShapes& shapes) { shape_ = *shapes.insert(shape_).first; }

    const std::string& ClassName() const { return *shape_->className; }
    /// Returns the names of the properties, in order.
    const std::vector<std::string>& Names() const { return shape_->names; }
    /// Returns a copy of the properties.
    RowProperties Properties() const;
    /// Returns the value of a property by name, ignoring case; null if the row lacks it.
    const CimValue* FindProperty(std::string_view name) const;

    /// Returns the keys of the row's path, in alphabetical order; none if the key of the class is
    /// unknown or the row has no value for it.
    std::vector<PathKey> Keys() const;
    /// Returns the references, in the order of the properties. They are parsed by each call.
    std::vector<Reference> References() const;

private:
    /// Returns each text that is the path of an instance: the place of its property, and the path.
    std::vector<std::pair<std::size_t, ObjectPath>> ParsedReferences() const;

    std::shared_ptr<const RowShape> shape_;
    std::vector<CimValue> values_;  ///< in the order of the names
};

}  // namespace qv::service
