#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/Records.h"

// The expected catalogue. The lists are written by hand: ExpectedInstanceClasses.cpp,
// ExpectedAssociations.cpp and ExpectedEventProperties.cpp. The tests of the tables, of the MOF
// files and of what is published read them.

namespace qv::test {

/// What a class's instance count equals.
enum class Quantity {
    one,                   ///< always one
    disks,                 ///< disks of interface type IDE
    controllers,           ///< controller rows with a revision
    channels,              ///< controller rows that are channels
    families,              ///< driver families among the drivers of controller rows
    attachedChannels,      ///< channels with a link to a controller
    attachedDisks,         ///< IDE disks with a link to a controller row
    disksOnChannels,       ///< IDE disks whose last link is to a channel
    familiesOfControllers  ///< families whose first row is a controller
};

/// A class of the hierarchy and its superclass, empty for the root.
struct ExpectedNode {
    std::string name;
    std::string superclass;
};

/// A property: what is put for it on the small host, and its type in the MOF files.
struct ExpectedProperty {
    /// Uses the usual type of what is put: uint16, string or boolean, or an array of them.
    ExpectedProperty(PropertyEntry entry);
    ExpectedProperty(PropertyEntry entry, std::string type)
        : put(std::move(entry)), mofType(std::move(type)) {}

    PropertyEntry put;
    std::string mofType;
};
using PropertyTable = std::vector<ExpectedProperty>;

/// The properties of an instance class, in the order in which they are put.
struct ExpectedTable {
    std::string driver;  ///< the controller's driver, if the properties depend on it
    PropertyTable properties;
};

struct ExpectedInstanceClass {
    std::string name;
    Quantity quantity;
    std::vector<ExpectedTable> tables;
};

/// An end of an association: its role, its class and the property that identifies its instances.
struct ExpectedEnd {
    std::string role;
    std::string className;
    std::string key;
};

struct ExpectedAssociation {
    std::string name;
    std::string superclass;
    Quantity quantity;
    std::vector<ExpectedEnd> ends;
    std::vector<unsigned> rules;              ///< the rule between each end and the next one
    std::optional<ExpectedProperty> added{};  ///< a property with the same value in each instance
};

/// A property of the indication.
struct ExpectedEventProperty {
    std::string name;
    std::string mofType;
};

/// Returns the classes in the order of definition, each after its superclass.
const std::vector<ExpectedNode>& ExpectedHierarchy();

/// Returns the classes in the order in which a requested name is compared with their names; the
/// associations follow the instance classes.
const std::vector<ExpectedInstanceClass>& ExpectedInstanceClasses();
const std::vector<ExpectedAssociation>& ExpectedAssociations();

/// The number of classes of each kind.
extern const std::size_t instanceClassTotal;
extern const std::size_t associationTotal;

/// Returns the names of the instance classes and of the associations.
std::vector<std::string> ExpectedClassNames();
std::vector<std::string> ExpectedInstanceClassNames();
std::vector<std::string> ExpectedAssociationNames();

/// Returns the record of the one instance that an instance class has on the small host (OneDiskHost
/// and the class's own table). `driver`: the controller's driver.
InstanceRecord ExpectedRecord(std::string_view className, std::string_view driver = {});

const std::vector<ExpectedEventProperty>& ExpectedEventProperties();

}  // namespace qv::test
