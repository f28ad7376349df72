#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/support/Records.h"

// What the catalogue is expected to be. The lists are written by hand: ExpectedInstanceClasses.cpp,
// ExpectedAssociations.cpp and ExpectedEventProperties.cpp. The tests of the tables, of the MOF
// files and of what is published read them.

namespace qv::test {

/// What the number of a class's instances is that of.
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

/// A class of the hierarchy and its superclass, which is empty for the root.
struct ExpectedNode {
    std::string name;
    std::string superclass;
};

/// A property: what is put for it on the small host, and its type in the MOF files.
struct ExpectedProperty {
    /// With the usual type for what is put: uint16, string or boolean, or a list of them.
    ExpectedProperty(PropertyEntry entry);
    ExpectedProperty(PropertyEntry entry, std::string type)
        : put(std::move(entry)), mofType(std::move(type)) {}

    PropertyEntry put;
    std::string mofType;
};
using PropertyTable = std::vector<ExpectedProperty>;

/// The properties of an instance class, in the order in which they are put.
struct ExpectedTable {
    std::string driver;  ///< the one that serves the controller, where the properties depend on it
    PropertyTable properties;
};

struct ExpectedInstanceClass {
    std::string name;
    Quantity quantity;
    std::vector<ExpectedTable> tables;
};

/// An end of an association: its role, its class and the property by which its instances are told.
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

/// In the order of definition, each class below its superclass.
const std::vector<ExpectedNode>& ExpectedHierarchy();

/// In the order in which a requested name is compared with theirs, the associations behind the
/// instance classes.
const std::vector<ExpectedInstanceClass>& ExpectedInstanceClasses();
const std::vector<ExpectedAssociation>& ExpectedAssociations();

/// How many of each there are.
extern const std::size_t instanceClassTotal;
extern const std::size_t associationTotal;

/// The names of both, of the instance classes and of the associations.
std::vector<std::string> ExpectedClassNames();
std::vector<std::string> ExpectedInstanceClassNames();
std::vector<std::string> ExpectedAssociationNames();

/// The record of the one instance that an instance class has on the small host (OneDiskHost, and
/// what the class's own table says); `driver`: the one that serves the controller.
InstanceRecord ExpectedRecord(std::string_view className, std::string_view driver = {});

const std::vector<ExpectedEventProperty>& ExpectedEventProperties();

}  // namespace qv::test
