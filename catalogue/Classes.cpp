#include "catalogue/Classes.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

constexpr std::array publishedClasses{
    PublishedClass{"QV_SATAPortController", &NativeAPI::getQV_SATAPortController},
    PublishedClass{"QV_SATADiskDrive", &NativeAPI::getQV_SATADiskDrive},
    PublishedClass{"QV_SATAStorageExtent", nullptr},
    PublishedClass{"QV_SATADiskDriveFW", nullptr},
    PublishedClass{"QV_SATAPortControllerPhysicalPackage", nullptr},
    PublishedClass{"QV_SATADiskPhysicalPackage", nullptr},
    PublishedClass{"QV_SATAStorageCollection", nullptr},
    PublishedClass{"QV_SATADiskLocation", nullptr},
    PublishedClass{"QV_SATAControllerLocation", nullptr},
    PublishedClass{"QV_SATAPortControllerProduct", nullptr},
    PublishedClass{"QV_SATALogicalPort", nullptr},
    PublishedClass{"QV_ISATAProtocolEndpoint", nullptr},
    PublishedClass{"QV_TSATAProtocolEndpoint", nullptr},
    PublishedClass{"QV_SATAPortControllerDriver", nullptr},
    PublishedClass{"QV_SATAPortControllerFW", nullptr},
    PublishedClass{"QV_SATAPortControllerBIOS", nullptr},
    PublishedClass{"QV_WinComputerSystem", &NativeAPI::getQV_WinComputerSystem},
    PublishedClass{"QV_WinComputerSystemSATAPortController", nullptr},
    PublishedClass{"QV_SATAPortControllerSATALogicalPort", nullptr},
    PublishedClass{"QV_SATAPortControllerPhysicalPackageSATAControllerLocation", nullptr},
    PublishedClass{"QV_SATAPortControllerProductSATAPortControllerPhysicalPackage", nullptr},
    PublishedClass{"QV_SATAPortControllerProductSATAPortController", nullptr},
    PublishedClass{"QV_SATAPortControllerPhysicalPackageSATAPortController", nullptr},
    PublishedClass{"QV_WinComputerSystemSATAStorageExtent", nullptr},
    PublishedClass{"QV_WinComputerSystemSATADiskDrive", nullptr},
    PublishedClass{"QV_WinComputerSystemSATALogicalPort", nullptr},
    PublishedClass{"QV_SATADiskDriveStorageExtent", nullptr},
    PublishedClass{"QV_SATADiskPhysicalPackageSATADiskDrive", nullptr},
    PublishedClass{"QV_SATADiskPhysicalPackageSATADiskLocation", nullptr},
    PublishedClass{"QV_SATADiskDriveDiskDriveFW", nullptr},
    PublishedClass{"QV_TSATAProtocolEndpointSATADiskDrive", nullptr},
    PublishedClass{"QV_SATALogicalPortISATAProtocolEndpoint", nullptr},
    PublishedClass{"QV_SATAInitiatorTargetLogicalUnitPath", nullptr},
    PublishedClass{"QV_SATAStorageCollectionSATADiskDrive", nullptr},
    PublishedClass{"QV_SATAHostedCollection", nullptr},
    PublishedClass{"QV_SATAPortControllerFWSATAPortController", nullptr},
    PublishedClass{"QV_SATAPortControllerDriverSATAPortController", nullptr},
    PublishedClass{"QV_SATAPortControllerBIOSSATAPortController", nullptr},
};

static_assert(publishedClasses.size() == 38);
static_assert(publishedClasses[instanceClassCount - 1].name == "QV_WinComputerSystem");
static_assert(
    [] {
        for (const auto& one : publishedClasses) {
            if (std::ranges::count(publishedClasses, one.name, &PublishedClass::name) != 1) {
                return false;
            }
        }
        return true;
    }(),
    "no class is listed twice");

}  // namespace

std::span<const PublishedClass> PublishedClasses() {
    return publishedClasses;
}

}  // namespace qv
