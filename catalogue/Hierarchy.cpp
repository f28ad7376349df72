#include "catalogue/Hierarchy.h"

#include <algorithm>
#include <array>

#include "source/Text.h"

namespace qv {
namespace {

struct Derivation {
    std::string_view name;
    std::string_view parent;
};

// The three software classes of a controller derive directly from CIM_SoftwareIdentity, not from
// QV_SoftwareIdentity, on purpose: IsClassOrAncestor depends on it.
constexpr std::array derivations{
    Derivation{"CIM_ManagedElement", ""},
    Derivation{"CIM_ManagedSystemElement", "CIM_ManagedElement"},
    Derivation{"CIM_LogicalElement", "CIM_ManagedSystemElement"},
    Derivation{"CIM_EnabledLogicalElement", "CIM_LogicalElement"},
    Derivation{"CIM_LogicalDevice", "CIM_EnabledLogicalElement"},
    Derivation{"CIM_Controller", "CIM_LogicalDevice"},
    Derivation{"CIM_PortController", "CIM_Controller"},
    Derivation{"QV_SATAPortController", "CIM_PortController"},
    Derivation{"CIM_System", "CIM_EnabledLogicalElement"},
    Derivation{"CIM_ComputerSystem", "CIM_System"},
    Derivation{"QV_ComputerSystem", "CIM_ComputerSystem"},
    Derivation{"QV_WinComputerSystem", "QV_ComputerSystem"},
    Derivation{"CIM_MediaAccessDevice", "CIM_LogicalDevice"},
    Derivation{"CIM_DiskDrive", "CIM_MediaAccessDevice"},
    Derivation{"QV_SATADiskDrive", "CIM_DiskDrive"},
    Derivation{"CIM_StorageExtent", "CIM_LogicalDevice"},
    Derivation{"QV_SATAStorageExtent", "CIM_StorageExtent"},
    Derivation{"CIM_SoftwareIdentity", "CIM_LogicalElement"},
    Derivation{"QV_SATADiskDriveFW", "CIM_SoftwareIdentity"},
    Derivation{"CIM_PhysicalElement", "CIM_ManagedSystemElement"},
    Derivation{"CIM_PhysicalPackage", "CIM_PhysicalElement"},
    Derivation{"QV_SATAPortControllerPhysicalPackage", "CIM_PhysicalPackage"},
    Derivation{"QV_SATADiskPhysicalPackage", "CIM_PhysicalPackage"},
    Derivation{"CIM_Collection", "CIM_ManagedElement"},
    Derivation{"CIM_SystemSpecificCollection", "CIM_Collection"},
    Derivation{"QV_GroupSystemSpecificCollection", "CIM_SystemSpecificCollection"},
    Derivation{"QV_SATAStorageCollection", "QV_GroupSystemSpecificCollection"},
    Derivation{"CIM_Location", "CIM_ManagedElement"},
    Derivation{"QV_SATADiskLocation", "CIM_Location"},
    Derivation{"QV_SATAControllerLocation", "CIM_Location"},
    Derivation{"CIM_Product", "CIM_ManagedElement"},
    Derivation{"QV_SATAPortControllerProduct", "CIM_Product"},
    Derivation{"CIM_LogicalPort", "CIM_LogicalDevice"},
    Derivation{"QV_SATALogicalPort", "CIM_LogicalPort"},
    Derivation{"CIM_ServiceAccessPoint", "CIM_EnabledLogicalElement"},
    Derivation{"CIM_ProtocolEndpoint", "CIM_ServiceAccessPoint"},
    Derivation{"QV_ISATAProtocolEndpoint", "CIM_ProtocolEndpoint"},
    Derivation{"QV_TSATAProtocolEndpoint", "CIM_ProtocolEndpoint"},
    Derivation{"QV_SoftwareIdentity", "CIM_SoftwareIdentity"},
    Derivation{"QV_SATAPortControllerDriver", "CIM_SoftwareIdentity"},
    Derivation{"QV_SATAPortControllerFW", "CIM_SoftwareIdentity"},
    Derivation{"QV_SATAPortControllerBIOS", "CIM_SoftwareIdentity"},
};

constexpr std::size_t none = derivations.size();

constexpr std::size_t IndexOf(std::string_view name) {
    for (std::size_t index = 0; index < derivations.size(); ++index) {
        if (derivations[index].name == name) {
            return index;
        }
    }
    return none;
}

static_assert(
    [] {
        for (std::size_t index = 1; index < derivations.size(); ++index) {
            if (IndexOf(derivations[index].name) != index ||
                IndexOf(derivations[index].parent) >= index) {
                return false;
            }
        }
        return derivations.front().parent.empty();
    }(),
    "every class is listed once and its superclass above it");

struct Nodes {
    std::array<ClassNode, derivations.size()> all{};

    constexpr Nodes() {
        for (std::size_t index = 0; index < derivations.size(); ++index) {
            const std::size_t parent = IndexOf(derivations[index].parent);
            all[index] = {derivations[index].name, parent == none ? nullptr : &all[parent]};
        }
    }
};

constinit const Nodes nodes;

}  // namespace

std::span<const ClassNode> ClassHierarchy() {
    return nodes.all;
}

const ClassNode* FindClassNode(std::string_view name) {
    const auto found = std::ranges::find_if(
        nodes.all, [name](const ClassNode& node) { return EqualsIgnoringCase(node.name, name); });
    return found == nodes.all.end() ? nullptr : &*found;
}

bool IsClassOrAncestor(const ClassNode* node, std::string_view name) {
    for (; node != nullptr; node = node->parent) {
        if (EqualsIgnoringCase(node->name, name)) {
            return true;
        }
    }
    return false;
}

}  // namespace qv
