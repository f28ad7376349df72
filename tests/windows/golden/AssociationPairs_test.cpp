// The associations that the library delivers, held against a plain reading of how their classes
// pair the endpoints that it delivers: every pair, and tests of two texts that share no code with
// the library.
#include <algorithm>

#include "tests/golden_native/GoldenFiles.h"
#include "tests/windows/golden/WholeHost.h"

namespace qv::test {
namespace {

char Lower(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character + ('a' - 'A'))
                                                : character;
}
bool Equal(const std::string& a, const std::string& b) {
    return std::ranges::equal(a, b, {}, Lower, Lower);
}
bool Holds(const std::string& a, const std::string& b) {
    return a.find(b) != std::string::npos;
}
bool IsHeldBy(const std::string& a, const std::string& b) {
    return Holds(b, a);
}

struct End {
    const char* role;
    const char* className;
    const char* key;
};

struct Rule {
    const char* className;
    End one;
    End other;
    bool (*match)(const std::string& one, const std::string& other);
};

constexpr Rule pairs[] = {
    {"QV_WinComputerSystemSATAPortController",
     {"GroupComponent", "QV_WinComputerSystem", "Name"},
     {"PartComponent", "QV_SATAPortController", "SystemName"},
     Equal},
    {"QV_SATAPortControllerSATALogicalPort",
     {"Antecedent", "QV_SATAPortController", "DeviceID"},
     {"Dependent", "QV_SATALogicalPort", "DeviceID"},
     IsHeldBy},
    {"QV_SATAPortControllerPhysicalPackageSATAControllerLocation",
     {"Element", "QV_SATAPortControllerPhysicalPackage", "Tag"},
     {"PhysicalLocation", "QV_SATAControllerLocation", "Name"},
     Equal},
    {"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage",
     {"GroupComponent", "QV_SATAPortControllerProduct", "Name"},
     {"PartComponent", "QV_SATAPortControllerPhysicalPackage", "Tag"},
     Equal},
    {"QV_SATAPortControllerProductSATAPortController",
     {"GroupComponent", "QV_SATAPortControllerProduct", "Name"},
     {"PartComponent", "QV_SATAPortController", "DeviceID"},
     Equal},
    {"QV_SATAPortControllerPhysicalPackageSATAPortController",
     {"Antecedent", "QV_SATAPortControllerPhysicalPackage", "Tag"},
     {"Dependent", "QV_SATAPortController", "DeviceID"},
     Equal},
    {"QV_WinComputerSystemSATAStorageExtent",
     {"GroupComponent", "QV_WinComputerSystem", "Name"},
     {"PartComponent", "QV_SATAStorageExtent", "SystemName"},
     Equal},
    {"QV_WinComputerSystemSATADiskDrive",
     {"GroupComponent", "QV_WinComputerSystem", "Name"},
     {"PartComponent", "QV_SATADiskDrive", "SystemName"},
     Equal},
    {"QV_WinComputerSystemSATALogicalPort",
     {"GroupComponent", "QV_WinComputerSystem", "Name"},
     {"PartComponent", "QV_SATALogicalPort", "SystemName"},
     Equal},
    {"QV_SATADiskDriveStorageExtent",
     {"Antecedent", "QV_SATADiskDrive", "DeviceID"},
     {"Dependent", "QV_SATAStorageExtent", "DeviceID"},
     Equal},
    {"QV_SATADiskPhysicalPackageSATADiskDrive",
     {"Antecedent", "QV_SATADiskPhysicalPackage", "Tag"},
     {"Dependent", "QV_SATADiskDrive", "DeviceID"},
     Equal},
    {"QV_SATADiskPhysicalPackageSATADiskLocation",
     {"Element", "QV_SATADiskPhysicalPackage", "Tag"},
     {"PhysicalLocation", "QV_SATADiskLocation", "Name"},
     Equal},
    {"QV_SATADiskDriveDiskDriveFW",
     {"Antecedent", "QV_SATADiskDriveFW", "InstanceID"},
     {"Dependent", "QV_SATADiskDrive", "DeviceID"},
     Equal},
    {"QV_TSATAProtocolEndpointSATADiskDrive",
     {"AvailableSAP", "QV_TSATAProtocolEndpoint", "Name"},
     {"ManagedElement", "QV_SATADiskDrive", "DeviceID"},
     Holds},
    {"QV_SATALogicalPortISATAProtocolEndpoint",
     {"Antecedent", "QV_SATALogicalPort", "DeviceID"},
     {"Dependent", "QV_ISATAProtocolEndpoint", "Name"},
     Holds},
    {"QV_SATAStorageCollectionSATADiskDrive",
     {"Collection", "QV_SATAStorageCollection", "InstanceID"},
     {"Member", "QV_SATADiskDrive", "SystemName"},
     Holds},
    {"QV_SATAHostedCollection",
     {"Antecedent", "QV_WinComputerSystem", "Name"},
     {"Dependent", "QV_SATAStorageCollection", "InstanceID"},
     IsHeldBy},
    {"QV_SATAPortControllerFWSATAPortController",
     {"Antecedent", "QV_SATAPortControllerFW", "InstanceID"},
     {"Dependent", "QV_SATAPortController", "DeviceID"},
     Holds},
    {"QV_SATAPortControllerDriverSATAPortController",
     {"Antecedent", "QV_SATAPortControllerDriver", "InstanceID"},
     {"Dependent", "QV_SATAPortController", "DeviceID"},
     Holds},
    {"QV_SATAPortControllerBIOSSATAPortController",
     {"Antecedent", "QV_SATAPortControllerBIOS", "InstanceID"},
     {"Dependent", "QV_SATAPortController", "DeviceID"},
     Holds},
};

using References = std::vector<std::string>;

class AssociationPairs : public testing::TestWithParam<std::filesystem::path> {
protected:
    const std::vector<PublishedInstance>& All(const char* className) const {
        return host_.Of(className);
    }

    std::string Reference(const char* role, const PublishedInstance& instance) const {
        return role + std::string(" = ") + host_.prefix + PathOf(instance, host_.prefix);
    }

    /// The references of each delivered association, in the order of the puts.
    std::vector<References> Delivered(const char* className) const {
        std::vector<References> delivered;
        for (const PublishedInstance& association : All(className)) {
            References& references = delivered.emplace_back();
            for (const PublishedProperty& property : association.properties) {
                if (property.isKey) {
                    references.push_back(property.name + " = " +
                                         TextOf(association, property.name));
                }
            }
        }
        return delivered;
    }

    std::vector<References> Derived(const Rule& rule) const {
        std::vector<References> derived;
        const auto& others = All(rule.other.className);
        for (const PublishedInstance& one : All(rule.one.className)) {
            for (const PublishedInstance& other : others) {
                if (rule.match(TextOf(one, rule.one.key), TextOf(other, rule.other.key))) {
                    derived.push_back(
                        {Reference(rule.one.role, one), Reference(rule.other.role, other)});
                }
            }
        }
        return derived;
    }

    const WholeHost& host_ = WholeHost::From(GetParam());
};

TEST_P(AssociationPairs, AreThoseOfTheDeliveredEndpoints) {
    for (const Rule& rule : pairs) {
        EXPECT_EQ(Delivered(rule.className), Derived(rule)) << rule.className;
    }
}

TEST_P(AssociationPairs, LeadFromInitiatorsThroughTargetsToExtents) {
    std::vector<References> derived;
    const auto& targets = All("QV_TSATAProtocolEndpoint");
    const auto& extents = All("QV_SATAStorageExtent");
    for (const PublishedInstance& initiator : All("QV_ISATAProtocolEndpoint")) {
        for (const PublishedInstance& target : targets) {
            for (const PublishedInstance& extent : extents) {
                const std::string name = TextOf(target, "Name");
                if (Holds(name, TextOf(initiator, "Name")) &&
                    Holds(name, TextOf(extent, "DeviceID"))) {
                    derived.push_back({Reference("Initiator", initiator),
                                       Reference("Target", target),
                                       Reference("LogicalUnit", extent)});
                }
            }
        }
    }
    EXPECT_EQ(Delivered("QV_SATAInitiatorTargetLogicalUnitPath"), derived);
}

INSTANTIATE_TEST_SUITE_P(ShippedHosts, AssociationPairs, testing::ValuesIn(ShippedHosts()),
                         HostName);
INSTANTIATE_TEST_SUITE_P(RealMachines, AssociationPairs, testing::ValuesIn(RealMachines()),
                         HostName);

}  // namespace
}  // namespace qv::test
