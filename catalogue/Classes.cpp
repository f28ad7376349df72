#include "catalogue/Classes.h"

#include <algorithm>
#include <array>

namespace qv {
namespace {

constexpr std::array publishedClasses{
    PublishedClass{"QV_SATAPortController", &NativeAPI::getQV_SATAPortController},
    PublishedClass{"QV_SATADiskDrive", &NativeAPI::getQV_SATADiskDrive},
    PublishedClass{"QV_SATAStorageExtent", &NativeAPI::getQV_SATAStorageExtent},
    PublishedClass{"QV_SATADiskDriveFW", &NativeAPI::getQV_SATADiskDriveFW},
    PublishedClass{"QV_SATAPortControllerPhysicalPackage",
                   &NativeAPI::getQV_SATAPortControllerPhysicalPackage},
    PublishedClass{"QV_SATADiskPhysicalPackage", &NativeAPI::getQV_SATADiskPhysicalPackage},
    PublishedClass{"QV_SATAStorageCollection", &NativeAPI::getQV_SATAStorageCollection},
    PublishedClass{"QV_SATADiskLocation", &NativeAPI::getQV_SATADiskLocation},
    PublishedClass{"QV_SATAControllerLocation", &NativeAPI::getQV_SATAControllerLocation},
    PublishedClass{"QV_SATAPortControllerProduct", &NativeAPI::getQV_SATAPortControllerProduct},
    PublishedClass{"QV_SATALogicalPort", &NativeAPI::getQV_SATALogicalPort},
    PublishedClass{"QV_ISATAProtocolEndpoint", &NativeAPI::getQV_ISATAProtocolEndpoint},
    PublishedClass{"QV_TSATAProtocolEndpoint", &NativeAPI::getQV_TSATAProtocolEndpoint},
    PublishedClass{"QV_SATAPortControllerDriver", &NativeAPI::getQV_SATAPortControllerDriver},
    PublishedClass{"QV_SATAPortControllerFW", &NativeAPI::getQV_SATAPortControllerFW},
    PublishedClass{"QV_SATAPortControllerBIOS", &NativeAPI::getQV_SATAPortControllerBIOS},
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
